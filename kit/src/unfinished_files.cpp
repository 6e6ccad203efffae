#include "unfinished_files.h"

#include <kelpkit/Files.h>
#include <kelpkit/Interruption.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "run_names.h"

namespace Kelpkit {

namespace {

constexpr std::size_t bufferBytes = 65536;

/// Whether the name is in the folder of the devices. There /dev/stdout may lead to a regular file, but must not be replaced.
bool isInDeviceFolder(const std::string& name) {
    const std::optional<FileIdentity> devices = identityOfTarget("/dev");
    return devices && identityOfTarget(pathOf(name).parent_path() / ".") == devices;
}

}  // namespace

UnfinishedFiles::UnfinishedFiles(std::vector<std::string> fileNames, bool mayOverwrite, std::string overwriteAdvice)
    : names(std::move(fileNames)), overwrite(mayOverwrite), advice(std::move(overwriteAdvice)) {
    states.reserve(names.size());
    // A write that finds no memory could not say what is missing.
    buffer.reserve(bufferBytes);
    for (const std::string& name : names) {
        requireUsable(name);
        if (exists(unfinished(name))) {
            refuseUnfinished(name);
        }
    }
}

UnfinishedFiles::~UnfinishedFiles() {
    try {
        if (!settled) {
            takeBack();
        }
    } catch (const std::exception&) {
        // There is no memory for the names, so the unfinished files stay under names that say what they are.
    }
}

void UnfinishedFiles::requireUsable(const std::string& name) const {
    if (name.empty()) {
        throw std::runtime_error("the name of an output file is empty");
    }
    requirePlainFile(name);
    if (isInDeviceFolder(name)) {
        throw std::runtime_error(name + " is in the folder of the devices");
    }
    if (!overwrite && exists(name)) {
        refuseInUse(name);
    }
    if (exists(replaced(name))) {
        refuseReplaced(name);
    }
}

void UnfinishedFiles::refuseInUse(const std::string& name) const {
    refuse(name, overwrite ? "another program created it meanwhile" : advice);
}

void UnfinishedFiles::startNext() {
    finishCurrent();
    if (states.size() == names.size()) {
        throw std::out_of_range("startNext() was called after the last name");
    }
    const std::string& name = names[states.size()];
    // A signal after the creation must not end the process before the file is removed.
    noteInterruptions();
    const NoForcedEnd untilItIsKnown;
    const std::error_code reason = current.create(pathOf(unfinished(name)));
    if (reason == std::errc::file_exists) {
        refuseUnfinished(name);
    }
    if (reason) {
        fail("cannot create " + unfinished(name), reason);
    }
    states.push_back({current.identity()});
    toRemove.add(pathOf(unfinished(name)), current.identity());
    // Another run may have ended since the constructor checked.
    requireUsable(name);
}

void UnfinishedFiles::write(const char* data, std::size_t count) {
    requireIntact();
    if (!current.isOpen()) {
        throw std::logic_error("no file is started");
    }
    while (count > 0) {
        const std::size_t part = std::min(count, bufferBytes - buffer.size());
        buffer.append(data, part);
        data += part;
        count -= part;
        if (buffer.size() == bufferBytes) {
            flush();
        }
    }
}

void UnfinishedFiles::requireIntact() const {
    if (!failure.empty()) {
        throw std::runtime_error(failure);
    }
}

void UnfinishedFiles::failToWrite(std::error_code reason) {
    try {
        fail("cannot write " + names.at(states.size() - 1), reason);
    } catch (const std::runtime_error& error) {
        failure = error.what();
        throw;
    }
}

void UnfinishedFiles::flush() {
    checkInterruption();
    const std::error_code reason = current.write(buffer.data(), buffer.size());
    buffer.clear();
    if (reason) {
        failToWrite(reason);
    }
}

void UnfinishedFiles::finishCurrent() {
    requireIntact();
    if (!current.isOpen()) {
        return;
    }
    flush();
    current.setPermissionsFor(pathOf(names.at(states.size() - 1)));
    // Synchronising all files in publish() is no faster on ext4, and a file that was closed may not report a failed write any more.
    std::error_code reason = current.synchronise();
    if (const std::error_code closing = current.close(); !reason) {
        reason = closing;
    }
    if (reason) {
        failToWrite(reason);
    }
}

}  // namespace Kelpkit
