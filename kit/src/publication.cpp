#include <kelpkit/Files.h>
#include <kelpkit/Interruption.h>

#include <map>
#include <stdexcept>

#include "run_names.h"
#include "unfinished_files.h"

// The part of UnfinishedFiles that runs after all files are written.

namespace Kelpkit {

namespace {

bool isOwn(const std::string& name, const FileIdentity& own) {
    return identityOf(pathOf(name)) == own;
}

}  // namespace

void UnfinishedFiles::publish() {
    if (settled) {
        throw std::logic_error("publish() was called already");
    }
    finishCurrent();
    const NoForcedEnd untilItIsSettled;
    checkInterruption();
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
    toRemove.clear();
    removeReplaced();
}

// The first file gets its name last: until then its unfinished file keeps other runs out.
void UnfinishedFiles::giveNames() {
    for (std::size_t i = states.size(); i-- > 0;) {
        giveName(names[i], states[i]);
    }
}

void UnfinishedFiles::giveName(const std::string& name, State& state) {
    if (!isOwn(unfinished(name), state.identity)) {
        throw std::runtime_error(unfinished(name) + " was removed or replaced meanwhile");
    }
    if (overwrite) {
        moveOldAway(name, state);
    }
    const std::error_code reason = moveToFreeName(pathOf(unfinished(name)), pathOf(name));
    if (reason == std::errc::file_exists) {
        refuseInUse(name);
    }
    if (reason) {
        fail("cannot rename " + unfinished(name), reason);
    }
    state.isPublished = true;
}

void UnfinishedFiles::moveOldAway(const std::string& name, State& state) const {
    const std::error_code reason = moveToFreeName(pathOf(name), pathOf(replaced(name)));
    if (reason == std::errc::file_exists) {
        refuseReplaced(name);
    }
    if (reason && reason != std::errc::no_such_file_or_directory) {
        fail("cannot rename " + name, reason);
    }
    state.oldIsMoved = !reason;
    state.old = identityOf(pathOf(replaced(name))).value_or(FileIdentity{});
    requirePlainFile(replaced(name));
}

void UnfinishedFiles::removeReplaced() const {
    std::map<std::filesystem::path, std::error_code> synchronised;
    std::string left;
    std::error_code firstReason;
    for (std::size_t i = 0; i < states.size(); ++i) {
        // A later file of this run may be called as an old one was.
        if (!states[i].oldIsMoved || !isOwn(replaced(names[i]), states[i].old)) {
            continue;
        }
        const auto [folder, isNew] = synchronised.try_emplace(pathOf(names[i]).parent_path());
        if (isNew) {
            folder->second = synchroniseFolderOf(pathOf(names[i]));
        }
        const std::error_code reason = folder->second ? folder->second : removeFile(pathOf(replaced(names[i])));
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
std::string UnfinishedFiles::takeBack() {
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

void UnfinishedFiles::takeBack(const std::string& name, State& state) {
    if (state.isPublished && isOwn(name, state.identity)) {
        removeFile(pathOf(name));
    }
    if (state.oldIsMoved && isOwn(replaced(name), state.old)) {
        state.oldIsMoved = static_cast<bool>(moveToFreeName(pathOf(replaced(name)), pathOf(name)));
    }
    // Last, because it keeps other runs out.
    if (!state.isPublished && isOwn(unfinished(name), state.identity)) {
        removeFile(pathOf(unfinished(name)));
    }
}

}  // namespace Kelpkit
