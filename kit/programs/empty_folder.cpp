#include "empty_folder.h"

#include <kelpkit/Files.h>

#include <cstdlib>
#include <random>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace Kelpkit::programs {

namespace {

/// Returns whether a change of rights can do no harm: a file may have another name elsewhere.
bool isOwn(const std::filesystem::path& path, std::filesystem::file_type type) {
    std::error_code ignored;
    return type == std::filesystem::file_type::directory ||
           (type == std::filesystem::file_type::regular && std::filesystem::hard_link_count(path, ignored) == 1);
}

/// Lets this user remove what is in a folder: Linux asks for the rights of folders, Windows for those of files. Follows no links.
void makeRemovable(const std::filesystem::path& folder) {
    std::error_code ignored;
    std::vector<std::filesystem::path> rest{folder};
    while (!rest.empty()) {
        std::filesystem::path path = std::move(rest.back());
        rest.pop_back();
        const std::filesystem::file_type type = std::filesystem::symlink_status(path, ignored).type();
        if (isOwn(path, type)) {
            std::filesystem::permissions(path, std::filesystem::perms::owner_all, ignored);
        }
        if (type == std::filesystem::file_type::directory) {
            const std::filesystem::directory_iterator end;
            for (std::filesystem::directory_iterator i(path, ignored); i != end; i.increment(ignored)) {
                rest.push_back(i->path());
            }
        }
    }
}

}  // namespace

EmptyFolder::EmptyFolder() {
    std::random_device random;
    const std::string name = "kelp-doc-" + std::to_string(random()) + "-" + std::to_string(random());
    std::error_code reason;
    folder = std::filesystem::temp_directory_path(reason);
    if (const char* const chosen = std::getenv("TMPDIR"); reason && chosen != nullptr && *chosen == '\0') {
        folder = "/tmp";
        reason.clear();
    }
    if (!reason) {
        folder = std::filesystem::absolute(folder / name, reason);
    }
    if (reason) {
        fail("cannot use the folder for temporary files", reason);
    }
    if (!std::filesystem::create_directory(folder, reason)) {
        fail("cannot create " + folder.u8string(), reason);
    }
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all, reason);
}

EmptyFolder::~EmptyFolder() {
    std::error_code reason;
    std::filesystem::remove_all(folder, reason);
    if (reason) {
        makeRemovable(folder);
        std::filesystem::remove_all(folder, reason);
    }
}

const std::filesystem::path& EmptyFolder::path() const {
    return folder;
}

}  // namespace Kelpkit::programs
