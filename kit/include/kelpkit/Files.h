#ifndef KELPKIT_FILES_H
#define KELPKIT_FILES_H

/// \file
/// Checks of files, and the errors of reading and writing them. Names are those of the command line. Unless stated otherwise, the
/// functions throw std::runtime_error with a text for the user; they may be called from any thread.

#include <cstdint>
#include <filesystem>
#include <ios>
#include <istream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace Kelpkit {

/// Converts a file name to a path, like a path option of the library. Where paths are UTF-16, the name has to be UTF-8.
/// \throws std::runtime_error  if it is not, or contains a NUL byte
std::filesystem::path pathOf(const std::string& name);

/// Returns whether the name is in use, even by a broken link. Throws if access is denied.
bool exists(const std::string& name);

/// Throws if the name is empty or belongs to a folder. A name that is not in use passes.
void requireNoFolder(const std::string& name);

/// Throws if the name is empty or belongs to anything but a regular file, or to a link to anything else. A name that is not in use
/// passes.
void requirePlainFile(const std::string& name);

/// Returns whether all are regular files, which can be read without waiting for input. Throws only for a name that is not a path.
bool arePlainFiles(const std::vector<std::string>& names);

/// Returns the size of a regular file in bytes. Throws for anything else and if access is denied.
std::uintmax_t sizeOf(const std::string& name);

class InputBuffer;

/// A file that is read once, from its beginning to its end; it may also be a pipe or a terminal. It is closed as soon as its end is
/// read, so that Windows can replace it.
///
///     Kelpkit::InputFile input(name);
///     std::string line;
///     while (std::getline(input.stream(), line)) {
class InputFile {
public:
    /// Opens the file. Throws "cannot read NAME: REASON", also if a later read fails; for a folder "NAME is a directory", for an
    /// empty name "the name of a file is empty".
    /// \param mode  std::ios::binary for the bytes as they are; without it, "\\r\\n" is read as "\\n" on Windows
    explicit InputFile(const std::string& name, std::ios::openmode mode = {});
    /// Closes the file.
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    InputFile(InputFile&&) = delete;
    InputFile& operator=(InputFile&&) = delete;

    /// Returns the stream to read from. A failed read throws from the call that reads and is never taken for the end of the file.
    /// A noted signal throws an Interruption, also while a read waits; see kelpkit/Interruption.h.
    std::istream& stream();

private:
    std::unique_ptr<InputBuffer> buffer;
    std::istream input;
};

/// Throws for a pattern, which passes the file check of the library. An existing file with "*" in its name passes.
void requireNoPattern(const std::string& name);

/// Throws if the output file is one of the inputs, under any name or link. Without a name, or for a new file, does nothing.
///
///     Kelpkit::requireNoInput(line.outputFile("-o"), line.arguments());
///
/// NewFiles needs no such check to be safe: an input keeps its content until publish().
void requireNoInput(const std::optional<std::string>& output, const std::vector<std::string>& inputs);

/// Returns the first of NAME.unfinished and NAME.replaced that is in use, by a run of NewFiles that is in progress or was killed;
/// empty if neither is.
std::string leftover(const std::string& name);

/// Returns the text with each control character, and each byte that is not UTF-8, escaped as \\xNN, as run() prints its messages.
/// Meant for file names on a console, not for output that other programs read. Throws nothing but std::bad_alloc.
std::string printable(std::string_view text);

/// Identifies a file under any of its names, as long as the file exists.
struct FileIdentity {
    std::uint64_t volume = 0;  ///< the number that the system gives to the volume
    std::uint64_t number = 0;  ///< the number of the file on its volume

    /// Returns whether both are the same file.
    bool operator==(const FileIdentity& other) const {
        return volume == other.volume && number == other.number;
    }
};

/// Returns the identity of the file with this name, for a symbolic link that of its target; none if there is no such file or
/// access is denied. Throws nothing.
std::optional<FileIdentity> identityOfTarget(const std::filesystem::path& path);

/// Throws "WHAT: REASON", with the system's reason, in English unless the tool sets a locale.
[[noreturn]] void fail(const std::string& what, std::error_code reason);

/// The same for a stream or a call of the C library that has just failed: the reason is in errno, which has to be set to 0 before
/// the call. Throws an Interruption instead if a signal was noted, because it may have ended the call.
[[noreturn]] void failOnStream(const std::string& what);

}  // namespace Kelpkit

#endif
