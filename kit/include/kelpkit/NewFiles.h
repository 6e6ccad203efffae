#ifndef KELPKIT_NEWFILES_H
#define KELPKIT_NEWFILES_H

/// \file
/// Output files that appear whole or not at all.
///
/// Until publish() a file is called NAME.unfinished and is in the same folder as NAME, so NAME has to be 11 bytes shorter than
/// the file system allows, usually 244 bytes at most. While it is written, only its owner may read it. While publish() overwrites
/// an old file, the old one is called NAME.replaced until all new files have their names, and for a moment no file is called NAME.
/// An object that is destroyed before publish(), as by an exception, removes its unfinished files and changes nothing else. A
/// process that is killed, or ends by std::exit(), which destroys no objects, leaves files with these names; the next run that
/// needs one of the names refuses to start and prints it.
///
/// Files of other programs under these names are not written, followed or removed: creation is exclusive, and names are given by
/// a rename that does not replace. Only NAME itself is replaced, and only with `mayOverwrite`. A symbolic link called NAME is
/// replaced as such, its target stays.
///
/// A new file gets the read, write and execute permissions of the file that it replaces, without its set-user-ID and set-group-ID
/// bits. It belongs to the user and the group of the process. If the old file belonged to another group or has an access control
/// list, which is not copied, the group gets the permissions of others. On Windows permissions come from the folder.
///
/// The bytes of every file are on the disk before it gets its name, so that a file with its name is whole even after a power
/// failure. An old file is removed after the names are on the disk too.
///
/// Errors are std::runtime_error with a text for the user that begins with what failed and names the file. An Interruption is
/// thrown when a signal asked the process to end, see kelpkit/Interruption.h; noteInterruptions() is called before the first file
/// is created. Not thread-safe: one object is for one thread at a time. Relative names are those of the current directory at each
/// call, so do not change it meanwhile. A child of fork() leaves objects of its parent alone: it ends by _exit().

#include <cstddef>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace Kelpkit {

class OutputBuffer;
class UnfinishedFiles;

/// Files that are written one after the other and get their names all together or not at all. For a single file, NewFile is
/// simpler.
///
/// Two objects with the same first name, in any processes, exclude each other, whatever their other names: the first unfinished
/// file is created first and gets its name last. Check what depends on other runs after the first startNext().
class NewFiles {
public:
    /// Checks the names and creates nothing.
    /// \param mayOverwrite  whether regular files with these names may be replaced
    /// \param advice        what a user can do about a name in use, as in "NAME exists already; ADVICE", for example
    ///                      "-f overwrites it"; may be empty
    /// \throws std::runtime_error  if a name is empty, belongs to a folder or a device, lies in /dev, or is in use without
    ///                             `mayOverwrite`, or if a run that was killed has left files. startNext() and publish() throw
    ///                             the same if a name comes into use later
    NewFiles(std::vector<std::string> names, bool mayOverwrite, std::string advice = {});
    /// Removes the unfinished files.
    ~NewFiles();
    NewFiles(const NewFiles&) = delete;
    NewFiles& operator=(const NewFiles&) = delete;
    NewFiles(NewFiles&&) = delete;
    NewFiles& operator=(NewFiles&&) = delete;

    /// Finishes the current file and creates the next one. Throws std::out_of_range after the last name.
    void startNext();

    /// Appends bytes to the current file, on every system as they are. They may stay in memory for a while, so that a later call
    /// reports that they cannot be written. After a failed write every call throws, publish() too.
    void write(const char* data, std::size_t count);

    /// Finishes the last file and gives all files that were started their names. Close the inputs first: Windows cannot rename an
    /// open file. If this throws, the names are as before, except for an old file whose name is taken meanwhile; the text names
    /// it. To be called once.
    void publish();

private:
    std::unique_ptr<UnfinishedFiles> files;
};

/// The one optional output of the usual tool: a file, or standard output if no name is given. A tool that forgets publish()
/// leaves no file, and its exit status is still 0.
///
/// \code
/// Kelpkit::NewFile output(line.outputFile("-o"));
/// output.stream() << "lines: " << count << '\n';
/// output.publish();
/// \endcode
class NewFile {
public:
    /// Creates the unfinished file, so that a folder that cannot be written is reported before long work. Parameters and errors are
    /// those of NewFiles. Without a name, does nothing.
    explicit NewFile(std::optional<std::string> name, bool mayOverwrite = false, std::string advice = {});
    /// Removes the unfinished file. What was written to standard output stays.
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    NewFile(NewFile&&) = delete;
    NewFile& operator=(NewFile&&) = delete;

    /// Writes into the unfinished file, byte for byte, or to standard output, in order with printf(), and with std::cout unless the
    /// tool calls sync_with_stdio(false). On Windows, standard output converts line ends. A failed write throws at once from the
    /// call that writes, with the reason; it sets badbit as well. std::endl does not write to the disk.
    ///
    /// Do not copy with "stream() << input.rdbuf()": it throws nothing and only sets failbit, also for an empty input, and the
    /// reason of a failed read is lost. Use read() and write().
    std::ostream& stream();

    /// Returns whether the output is a file.
    bool isFile() const;

    /// Gives the file its name, or flushes standard output. Throws if anything was not written, also if the stream is in a failed
    /// state, in which it drops what is written to it. To be called once; writing to the stream afterwards throws std::logic_error.
    void publish();

private:
    std::unique_ptr<OutputBuffer> buffer;
    std::ostream output;
    bool toFile;
};

}  // namespace Kelpkit

#endif
