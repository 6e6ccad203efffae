#include <kelpkit/Files.h>
#include <kelpkit/Interruption.h>
#include <kelplib/Kelp.h>

#include <algorithm>
#include <cerrno>
#include <stdexcept>

#include "system_file.h"

namespace Kelpkit {

std::filesystem::path pathOf(const std::string& name) {
    if (name.find('\0') != std::string::npos) {
        throw std::runtime_error("a file name contains a NUL byte");
    }
    try {
        std::filesystem::path path;
        Kelp::stringToValue(path, name);
        return path;
    } catch (const std::filesystem::filesystem_error&) {
        throw std::runtime_error(name + ": this name is not in UTF-8");
    }
}

bool exists(const std::string& name) {
    std::error_code reason;
    const std::filesystem::file_status status = std::filesystem::symlink_status(pathOf(name), reason);
    // No file has a name that is too long.
    if (!std::filesystem::status_known(status) && reason != std::errc::filename_too_long) {
        fail("cannot look at " + name, reason);
    }
    return std::filesystem::exists(status);
}

void requireNoFolder(const std::string& name) {
    if (name.empty()) {
        throw std::runtime_error("the name of a file is empty");
    }
    std::error_code ignored;
    if (std::filesystem::is_directory(pathOf(name), ignored)) {
        throw std::runtime_error(name + " is a directory");
    }
}

void requirePlainFile(const std::string& name) {
    requireNoFolder(name);
    std::error_code ignored;
    const std::filesystem::file_status status = std::filesystem::status(pathOf(name), ignored);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        throw std::runtime_error(name + " is not a regular file");
    }
}

std::uintmax_t sizeOf(const std::string& name) {
    requirePlainFile(name);
    std::error_code reason;
    const std::uintmax_t size = std::filesystem::file_size(pathOf(name), reason);
    if (reason) {
        fail("cannot read " + name, reason);
    }
    return size;
}

void requireNoPattern(const std::string& name) {
    if (name.find('*') != std::string::npos && !identityOf(pathOf(name))) {
        throw std::runtime_error(name + ": name the file, patterns are not expanded");
    }
}

void requireNoInput(const std::optional<std::string>& output, const std::vector<std::string>& inputs) {
    const std::optional<FileIdentity> identity = output ? identityOfTarget(pathOf(*output)) : std::nullopt;
    if (!identity) {
        return;
    }
    for (const std::string& input : inputs) {
        if (identityOfTarget(pathOf(input)) == identity) {
            throw std::runtime_error(*output + " is an input too; choose another name");
        }
    }
}

bool arePlainFiles(const std::vector<std::string>& names) {
    return std::all_of(names.begin(), names.end(), [](const std::string& name) {
        std::error_code ignored;
        return std::filesystem::is_regular_file(pathOf(name), ignored);
    });
}

void fail(const std::string& what, std::error_code reason) {
    // The message of the condition is the same on every system, that of the code itself is not.
    throw std::runtime_error(what + ": " + reason.default_error_condition().message());
}

void failOnStream(const std::string& what) {
    const int reason = errno != 0 ? errno : EIO;
    checkInterruption();
    fail(what, std::error_code(reason, std::generic_category()));
}

}  // namespace Kelpkit
