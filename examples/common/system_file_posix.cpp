#include "system_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace common {

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

/// Returns the permissions of new files. Reading the mask is only possible by setting it.
mode_t permissionsOfNewFiles() {
    const mode_t mask = umask(S_IRWXG | S_IRWXO);
    umask(mask);
    return (S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH) & ~mask;
}

std::error_code synchroniseDescriptor(int descriptor) {
    const bool failed = uninterrupted([&] { return fsync(descriptor); }) != 0;
    // EINVAL: this kind of file is not synchronised.
    return failed && errno != EINVAL ? lastError() : std::error_code();
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

CreatedFile::~CreatedFile() {
    close();
}

std::error_code CreatedFile::create(const std::filesystem::path& path) {
    const int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    const int descriptor = uninterrupted([&] { return open(path.c_str(), flags, S_IRUSR | S_IWUSR); });
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
    if (stat(replaced.c_str(), &before) == 0 && S_ISREG(before.st_mode)) {
        mode = before.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
        if (fstat(descriptor, &own) != 0 || own.st_gid != before.st_gid) {
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
    if (errno != EINVAL && errno != ENOSYS) {
        return lastError();
    }
    // The file system (such as NFS) or the system cannot do this in one step.
    if (linkat(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), 0) != 0) {
        return lastError();
    }
    if (unlink(from.c_str()) != 0) {
        const std::error_code reason = lastError();
        unlink(to.c_str());
        return reason;
    }
    return {};
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

}  // namespace common
