#include <set>
#include <stdexcept>

#include "files.h"
#include "new_files.h"
#include "run_names.h"

// The part of NewFiles that runs after all files are written.

namespace common {

namespace {

bool isOwn(const std::string& name, const FileIdentity& own) {
    return identityOf(pathOf(name)) == own;
}

}  // namespace

void NewFiles::publish() {
    finishCurrent();
    try {
        giveNames();
    } catch (const std::runtime_error& error) {
        const std::string left = takeBack();
        if (left.empty()) {
            throw;
        }
        throw std::runtime_error(std::string(error.what()) + "; the file before is now called " + left);
    }
    settled = true;
    removeReplaced();
}

// The first file gets its name last: until then its unfinished file keeps other runs out.
void NewFiles::giveNames() {
    for (std::size_t i = states.size(); i-- > 0;) {
        giveName(names[i], states[i]);
    }
}

void NewFiles::giveName(const std::string& name, State& state) {
    if (!isOwn(unfinished(name), state.identity)) {
        throw std::runtime_error(unfinished(name) + " was removed or replaced meanwhile");
    }
    if (overwrite) {
        const std::error_code reason = moveToFreeName(pathOf(name), pathOf(replaced(name)));
        if (reason == std::errc::file_exists) {
            refuseReplaced(name);
        }
        if (reason && reason != std::errc::no_such_file_or_directory) {
            fail("cannot rename " + name, reason);
        }
        state.oldIsMoved = !reason;
        requirePlainFile(replaced(name));
    }
    const std::error_code reason = moveToFreeName(pathOf(unfinished(name)), pathOf(name));
    if (reason == std::errc::file_exists) {
        refuse(name, overwrite ? "another program created it meanwhile" : "-f overwrites it");
    }
    if (reason) {
        fail("cannot rename " + unfinished(name), reason);
    }
    state.isPublished = true;
}

void NewFiles::removeReplaced() {
    std::set<std::filesystem::path> synchronised;
    std::string left;
    std::error_code firstReason;
    for (std::size_t i = 0; i < states.size(); ++i) {
        if (!states[i].oldIsMoved) {
            continue;
        }
        std::error_code reason;
        if (synchronised.insert(pathOf(names[i]).parent_path()).second) {
            reason = synchroniseFolderOf(pathOf(names[i]));
        }
        if (!reason) {
            reason = removeFile(pathOf(replaced(names[i])));
        }
        if (reason && left.empty()) {
            left = replaced(names[i]);
            firstReason = reason;
        }
    }
    if (!left.empty()) {
        fail("cannot remove " + left, firstReason);
    }
}

/// \returns the current name of the first old file that could not get its name back; empty if all could
std::string NewFiles::takeBack() {
    settled = true;
    current.close();
    std::string left;
    for (std::size_t i = states.size(); i-- > 0;) {
        takeBack(names[i], states[i]);
        if (states[i].oldIsMoved && left.empty()) {
            left = replaced(names[i]);
        }
    }
    return left;
}

void NewFiles::takeBack(const std::string& name, State& state) {
    if (state.isPublished && isOwn(name, state.identity)) {
        removeFile(pathOf(name));
    }
    if (state.oldIsMoved) {
        state.oldIsMoved = static_cast<bool>(moveToFreeName(pathOf(replaced(name)), pathOf(name)));
    }
    // Last, because it keeps other runs out.
    if (!state.isPublished && isOwn(unfinished(name), state.identity)) {
        removeFile(pathOf(unfinished(name)));
    }
}

}  // namespace common
