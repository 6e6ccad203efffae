#ifndef COMMON_NEW_FILES_H
#define COMMON_NEW_FILES_H

#include <cstddef>
#include <string>
#include <vector>

#include "system_file.h"

namespace common {

/// Files that are written one after the other and get their names all together or not at all.
///
/// Until publish() a file is called NAME.unfinished, and only its owner may read it. While publish() overwrites an old file, it
/// is called NAME.replaced until all new files have their names. An object destroyed before publish(), as by an exception,
/// removes its unfinished files and changes nothing else. A process that is killed leaves files with these names; the next
/// run that needs one of the names refuses to start and reports it.
///
/// Files of other programs under these names are not written, followed or removed. Only NAME itself is replaced, and only
/// with `mayOverwrite`. Two objects with the same first name exclude each other, whatever their other names: the first
/// unfinished file is created first and gets its name last. Check what depends on other runs after the first startNext().
class NewFiles {
public:
    /// Checks the names and creates nothing. Throws if a name is in use, unless `mayOverwrite` is set, and always if it belongs
    /// to a folder or a device. startNext() and publish() throw if a name comes into use later.
    NewFiles(std::vector<std::string> names, bool mayOverwrite);
    ~NewFiles();
    NewFiles(const NewFiles&) = delete;
    NewFiles& operator=(const NewFiles&) = delete;
    NewFiles(NewFiles&&) = delete;
    NewFiles& operator=(NewFiles&&) = delete;

    /// Finishes the current file and creates the next one.
    void startNext();
    /// Appends to the current file.
    void write(const char* data, std::size_t count);
    /// Finishes the last file and gives all files their names. With `mayOverwrite` all bytes are on the disk before an old file
    /// is removed. Close the inputs first: Windows cannot rename an open file.
    void publish();

private:
    /// The state of one of the names.
    struct State {
        FileIdentity identity;     ///< of the unfinished file
        bool oldIsMoved = false;   ///< NAME is now NAME.replaced
        bool isPublished = false;  ///< NAME.unfinished is now NAME
    };

    void flush();
    void finishCurrent();
    void giveNames();
    void giveName(const std::string& name, State& state);
    void removeReplaced();
    std::string takeBack();
    void takeBack(const std::string& name, State& state);

    std::vector<std::string> names;
    std::vector<State> states;  ///< of the files created so far, in the order of the names
    bool overwrite;
    CreatedFile current;
    std::string buffer;    ///< bytes of the current file that are not yet written
    bool settled = false;  ///< published or taken back
};

}  // namespace common

#endif
