#include "system_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace Kelpkit {

namespace {

std::error_code lastError() {
    return {errno, std::generic_category()};
}

/// Repeats a call that a signal has interrupted.
template <class Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

FileIdentity identityIn(const struct stat& status) {
    return {static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino)};
}

/// Returns the permissions of new files. Reading the mask is only possible by setting it, which happens once, because the files of
/// other threads get the mask that is set meanwhile.
mode_t permissionsOfNewFiles() {
    static const mode_t mask = [] {
        const mode_t before = umask(S_IRWXG | S_IRWXO);
        umask(before);
        return before;
    }();
    return (S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH) & ~mask;
}

std::error_code synchroniseDescriptor(int descriptor) {
    // EINVAL: this kind of file is not synchronised.
    return uninterrupted([&] { return fsync(descriptor); }) != 0 && errno != EINVAL ? lastError() : std::error_code();
}

/// Returns whether the file has an access control list. Its group permissions are then the most that the list grants.
bool hasAccessList(const std::filesystem::path& path) {
    return getxattr(path.c_str(), "system.posix_acl_access", nullptr, 0) != -1;
}

/// Creates a file, never as one of the standard streams, even if one of them is closed: its text must not end up here.
int openNew(const std::filesystem::path& path) {
    const int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    const int descriptor = uninterrupted([&] { return open(path.c_str(), flags, S_IRUSR | S_IWUSR); });
    if (descriptor == -1 || descriptor > STDERR_FILENO) {
        return descriptor;
    }
    const int moved = fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int reason = errno;
    if (moved == -1) {
        unlink(path.c_str());
    }
    ::close(descriptor);
    errno = reason;
    return moved;
}

/// Renames to a name that this process has just taken with an empty file.
std::error_code moveOverPlaceholder(const std::filesystem::path& from, const std::filesystem::path& to) {
    const int placeholder = openNew(to);
    if (placeholder == -1) {
        return lastError();
    }
    ::close(placeholder);
    if (rename(from.c_str(), to.c_str()) == 0) {
        return {};
    }
    const std::error_code reason = lastError();
    unlink(to.c_str());
    return reason;
}

std::error_code linkAndUnlink(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (linkat(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), 0) != 0) {
        // The file system has no links, or the file belongs to somebody else.
        const bool hasNoLinks = errno == EPERM || errno == EOPNOTSUPP || errno == ENOSYS;
        return hasNoLinks ? moveOverPlaceholder(from, to) : lastError();
    }
    if (unlink(from.c_str()) != 0) {
        const std::error_code reason = lastError();
        unlink(to.c_str());
        return reason;
    }
    return {};
}

}  // namespace

std::optional<FileIdentity> identityOf(const std::filesystem::path& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0 ? std::optional(identityIn(status)) : std::nullopt;
}

std::optional<FileIdentity> identityOfTarget(const std::filesystem::path& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? std::optional(identityIn(status)) : std::nullopt;
}

std::error_code CreatedFile::create(const std::filesystem::path& path) {
    const int descriptor = openNew(path);
    if (descriptor == -1) {
        return lastError();
    }
    handle = descriptor;
    struct stat status {};
    if (fstat(descriptor, &status) != 0) {
        return lastError();
    }
    ownIdentity = identityIn(status);
    return {};
}

bool CreatedFile::isOpen() const {
    return handle != none;
}

FileIdentity CreatedFile::identity() const {
    return ownIdentity;
}

std::error_code CreatedFile::write(const char* data, std::size_t count) {
    while (count > 0) {
        const ssize_t written = uninterrupted([&] { return ::write(static_cast<int>(handle), data, count); });
        if (written < 0) {
            return lastError();
        }
        data += written;
        count -= static_cast<std::size_t>(written);
    }
    return {};
}

void CreatedFile::setPermissionsFor(const std::filesystem::path& replaced) {
    const int descriptor = static_cast<int>(handle);
    mode_t mode = permissionsOfNewFiles();
    struct stat before {};
    struct stat own {};
    // Not those of a link's target, which stays.
    if (lstat(replaced.c_str(), &before) == 0 && S_ISREG(before.st_mode)) {
        mode = before.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
        if (fstat(descriptor, &own) != 0 || own.st_gid != before.st_gid || hasAccessList(replaced)) {
            mode &= ~static_cast<mode_t>(S_IRWXG) | (mode & S_IRWXO) << 3U;
        }
    }
    // If this fails, only the owner can use the file.
    static_cast<void>(fchmod(descriptor, mode));
}

std::error_code CreatedFile::synchronise() {
    return synchroniseDescriptor(static_cast<int>(handle));
}

std::error_code CreatedFile::close() {
    if (!isOpen()) {
        return {};
    }
    // After EINTR the descriptor is closed too.
    const bool failed = ::close(static_cast<int>(handle)) != 0 && errno != EINTR;
    handle = none;
    return failed ? lastError() : std::error_code();
}

std::error_code moveToFreeName(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
        return {};
    }
    // The file system (such as NFS) or the system cannot do this in one step.
    return errno == EINVAL || errno == ENOSYS ? linkAndUnlink(from, to) : lastError();
}

std::error_code removeFile(const std::filesystem::path& path) {
    return unlink(path.c_str()) == 0 ? std::error_code() : lastError();
}

std::error_code synchroniseFolderOf(const std::filesystem::path& file) {
    const std::filesystem::path folder = file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
    const int descriptor = uninterrupted([&] { return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
    if (descriptor == -1) {
        // A folder in which files may be created but not listed cannot be synchronised.
        return errno == EACCES ? std::error_code() : lastError();
    }
    const std::error_code reason = synchroniseDescriptor(descriptor);
    ::close(descriptor);
    return reason;
}

}  // namespace Kelpkit
