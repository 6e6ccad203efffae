#ifndef COMMON_SYSTEM_FILE_H
#define COMMON_SYSTEM_FILE_H

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <system_error>

/// \file
/// Calls on files that the standard library lacks. They never follow, share or replace a file that another process has put under
/// a name. Each system has its own source. Failures are returned.

namespace common {

/// Identifies a file under any of its names, as long as the file exists.
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

/// Returns the identity of the file or symbolic link with this name; none if the name is not in use or cannot be read.
std::optional<FileIdentity> identityOf(const std::filesystem::path& path);

/// The same, but for a symbolic link that of its target.
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

    /// Creates and opens a file that only its owner may read. Fails with std::errc::file_exists if the name is in use, even by
    /// a symbolic link.
    std::error_code create(const std::filesystem::path& path);

    bool isOpen() const;
    FileIdentity identity() const;

    /// Appends all the bytes.
    std::error_code write(const char* data, std::size_t count);

    /// Gives the file the read, write and execute permissions of the file that it replaces, or those of a new file if there is
    /// none. If the groups differ, the group gets the permissions of others. Does not copy other mode bits: a set-user-ID bit
    /// would apply to the new owner. On Windows permissions come from the folder.
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

/// Renames a file or a symbolic link. Fails with std::errc::file_exists if the new name is in use.
std::error_code moveToFreeName(const std::filesystem::path& from, const std::filesystem::path& to);

/// Removes a file or a symbolic link, never a folder.
std::error_code removeFile(const std::filesystem::path& path);

/// Waits until the names in the folder of this file are on the disk. Succeeds where the system has no such call.
std::error_code synchroniseFolderOf(const std::filesystem::path& file);

}  // namespace common

#endif
