#include <windows.h>

#include "system_file.h"

namespace Kelpkit {

namespace {

std::error_code lastError() {
    return {static_cast<int>(GetLastError()), std::system_category()};
}

std::error_code reasonUnless(BOOL succeeded) {
    return succeeded != 0 ? std::error_code() : lastError();
}

HANDLE asHandle(std::intptr_t number) {
    return reinterpret_cast<HANDLE>(number);  // NOLINT(performance-no-int-to-ptr): INVALID_HANDLE_VALUE is a number too
}

std::optional<FileIdentity> identityOfOpen(HANDLE file) {
    BY_HANDLE_FILE_INFORMATION about;
    if (GetFileInformationByHandle(file, &about) == 0) {
        return std::nullopt;
    }
    return FileIdentity{about.dwVolumeSerialNumber,
                        static_cast<std::uint64_t>(about.nFileIndexHigh) << 32U | about.nFileIndexLow};
}

std::optional<FileIdentity> identityOpenedWith(const std::filesystem::path& path, DWORD flags) {
    constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    // FILE_FLAG_BACKUP_SEMANTICS opens folders too.
    const HANDLE file =
        CreateFileW(path.c_str(), 0, shareAll, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | flags, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return std::nullopt;
    }
    const std::optional<FileIdentity> identity = identityOfOpen(file);
    CloseHandle(file);
    return identity;
}

}  // namespace

std::optional<FileIdentity> identityOf(const std::filesystem::path& path) {
    return identityOpenedWith(path, FILE_FLAG_OPEN_REPARSE_POINT);
}

std::optional<FileIdentity> identityOfTarget(const std::filesystem::path& path) {
    return identityOpenedWith(path, 0);
}

std::error_code CreatedFile::create(const std::filesystem::path& path) {
    // Without FILE_FLAG_OPEN_REPARSE_POINT a symbolic link to a name that is not in use would have its target created.
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return lastError();
    }
    handle = reinterpret_cast<std::intptr_t>(file);
    const std::optional<FileIdentity> identity = identityOfOpen(file);
    if (!identity) {
        return lastError();
    }
    ownIdentity = *identity;
    return {};
}

bool CreatedFile::isOpen() const {
    return handle != none;
}

FileIdentity CreatedFile::identity() const {
    return ownIdentity;
}

std::error_code CreatedFile::write(const char* data, std::size_t count) {
    constexpr std::size_t mostAtOnce = 1U << 30U;
    while (count > 0) {
        const std::size_t chunk = count < mostAtOnce ? count : mostAtOnce;
        DWORD written = 0;
        if (WriteFile(asHandle(handle), data, static_cast<DWORD>(chunk), &written, nullptr) == 0) {
            return lastError();
        }
        data += written;
        count -= written;
    }
    return {};
}

void CreatedFile::setPermissionsFor(const std::filesystem::path& /*replaced*/) {}

std::error_code CreatedFile::synchronise() {
    return reasonUnless(FlushFileBuffers(asHandle(handle)));
}

std::error_code CreatedFile::close() {
    if (!isOpen()) {
        return {};
    }
    const BOOL closed = CloseHandle(asHandle(handle));
    handle = none;
    return reasonUnless(closed);
}

std::error_code moveToFreeName(const std::filesystem::path& from, const std::filesystem::path& to) {
    return reasonUnless(MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH));
}

std::error_code removeFile(const std::filesystem::path& path) {
    if (DeleteFileW(path.c_str()) != 0) {
        return {};
    }
    const std::error_code reason = lastError();
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_READONLY) == 0 ||
        SetFileAttributesW(path.c_str(), attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY)) == 0) {
        return reason;
    }
    return reasonUnless(DeleteFileW(path.c_str()));
}

std::error_code synchroniseFolderOf(const std::filesystem::path& /*file*/) {
    return {};
}

}  // namespace Kelpkit
