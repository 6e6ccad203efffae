#ifndef COMMON_SYSTEM_FILE_H
#define COMMON_SYSTEM_FILE_H

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <system_error>

/// \file
/// The few calls on files that the standard library lacks: they never follow, share or replace what another process has
/// put under a name. Each system has a source of its own. Failures are returned.

namespace common {

/// Which file it is, whatever its names are. Holds as long as the file exists.
struct FileIdentity {
    std::uint64_t volume = 0;
    std::uint64_t number = 0;

    bool operator==(const FileIdentity& other) const {
        return volume == other.volume && number == other.number;
    }
    bool operator!=(const FileIdentity& other) const {
        return !(*this == other);
    }
};

/// The identity of what has this name; of a symbolic link, that of the link. None when nothing has it or it cannot be read.
std::optional<FileIdentity> identityOf(const std::filesystem::path& path);

/// The same for the file that a symbolic link leads to.
std::optional<FileIdentity> identityOfTarget(const std::filesystem::path& path);

/// A file that this process has created and writes.
class CreatedFile {
public:
    CreatedFile() = default;
    /// Closes the file.
    ~CreatedFile();
    CreatedFile(const CreatedFile&) = delete;
    CreatedFile& operator=(const CreatedFile&) = delete;
    CreatedFile(CreatedFile&&) = delete;
    CreatedFile& operator=(CreatedFile&&) = delete;

    /// Creates and opens a file that only its owner may read. Fails with std::errc::file_exists when anything has the name,
    /// a symbolic link included.
    std::error_code create(const std::filesystem::path& path);

    bool isOpen() const;
    FileIdentity identity() const;

    /// Appends all the bytes.
    std::error_code write(const char* data, std::size_t count);

    /// Gives the file the permissions to read, write and execute of a file that it is going to replace, and those of any
    /// new file when there is none. Where the group is another one, it gets no more than everybody. Other mode bits are not
    /// copied: a set-user-ID bit would work for the new owner. On Windows permissions come from the folder.
    void setPermissionsFor(const std::filesystem::path& replaced);

    /// Waits until the bytes are on the disk. Succeeds where a file system has no such call.
    std::error_code synchronise();

    /// Does nothing when no file is open.
    std::error_code close();

private:
    static constexpr std::intptr_t none = -1;

    std::intptr_t handle = none;  ///< a file descriptor or a HANDLE
    FileIdentity ownIdentity;
};

/// Renames a file or a symbolic link. Fails with std::errc::file_exists when anything has the new name.
std::error_code moveToFreeName(const std::filesystem::path& from, const std::filesystem::path& to);

/// Removes a file or a symbolic link, never a folder.
std::error_code removeFile(const std::filesystem::path& path);

/// Waits until the names in the folder of this file are on the disk. Succeeds where the system has no such call.
std::error_code synchroniseFolderOf(const std::filesystem::path& file);

}  // namespace common

#endif
