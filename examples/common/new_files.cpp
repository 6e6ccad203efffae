#include "new_files.h"

#include <stdexcept>
#include <utility>

#include "files.h"
#include "run_names.h"

namespace common {

namespace {

constexpr std::size_t bufferBytes = 65536;

void requireUsable(const std::string& name, bool overwrite) {
    requirePlainFile(name);
    if (!overwrite && exists(name)) {
        refuse(name, "-f overwrites it");
    }
    if (exists(replaced(name))) {
        refuseReplaced(name);
    }
}

}  // namespace

NewFiles::NewFiles(std::vector<std::string> fileNames, bool mayOverwrite)
    : names(std::move(fileNames)), overwrite(mayOverwrite) {
    states.reserve(names.size());
    for (const std::string& name : names) {
        requireUsable(name, overwrite);
        if (exists(unfinished(name))) {
            refuseUnfinished(name);
        }
    }
}

NewFiles::~NewFiles() {
    try {
        if (!settled) {
            takeBack();
        }
    } catch (const std::exception&) {
        // There is no memory for the names, so the unfinished files stay under their telling names.
    }
}

void NewFiles::startNext() {
    finishCurrent();
    const std::string& name = names.at(states.size());
    const std::error_code reason = current.create(pathOf(unfinished(name)));
    if (reason == std::errc::file_exists) {
        refuseUnfinished(name);
    }
    if (reason) {
        fail("cannot create " + name, reason);
    }
    states.push_back({current.identity()});
    // Another run may have ended since the constructor checked.
    requireUsable(name, overwrite);
}

void NewFiles::write(const char* data, std::size_t count) {
    buffer.append(data, count);
    if (buffer.size() >= bufferBytes) {
        flush();
    }
}

void NewFiles::flush() {
    const std::error_code reason = current.write(buffer.data(), buffer.size());
    buffer.clear();
    if (reason) {
        fail("cannot write " + names.at(states.size() - 1), reason);
    }
}

void NewFiles::finishCurrent() {
    if (!current.isOpen()) {
        return;
    }
    flush();
    const std::string& name = names.at(states.size() - 1);
    current.setPermissionsFor(pathOf(name));
    std::error_code reason = overwrite ? current.synchronise() : std::error_code();
    if (const std::error_code closing = current.close(); !reason) {
        reason = closing;
    }
    if (reason) {
        fail("cannot write " + name, reason);
    }
}

}  // namespace common
