#ifndef KELPKIT_SYSTEM_FILE_H
#define KELPKIT_SYSTEM_FILE_H

#include <kelpkit/Files.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <system_error>

/// \file
/// Calls on files that the standard library lacks. They never follow, share or replace a file that another process has put under
/// a name. Each system has its own source, with identityOfTarget() too. Failures are returned.

namespace Kelpkit {

/// Returns the identity of the file or symbolic link with this name; none if the name is not in use or cannot be read.
std::optional<FileIdentity> identityOf(const std::filesystem::path& path);

/// A file that this process has created and writes. Its owner closes it.
class CreatedFile {
public:
    CreatedFile() = default;
    ~CreatedFile() = default;
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
    /// none. If the groups differ or the replaced file has an access control list, the group gets the permissions of others.
    /// Does not copy other mode bits: a set-user-ID bit would apply to the new owner. On Windows permissions come from the folder.
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

/// Renames a file or a symbolic link. Fails with std::errc::file_exists if the new name is in use. Where neither the system nor the
/// file system can do this in one step, an empty file takes the new name first: it excludes every program that creates files
/// exclusively, as this one does, and is left if the process is killed in between.
std::error_code moveToFreeName(const std::filesystem::path& from, const std::filesystem::path& to);

/// Removes a file, even if it is read-only, or a symbolic link; never a folder.
std::error_code removeFile(const std::filesystem::path& path);

/// Waits until the names in the folder of this file are on the disk. Succeeds where the system has no such call.
std::error_code synchroniseFolderOf(const std::filesystem::path& file);

}  // namespace Kelpkit

#endif
