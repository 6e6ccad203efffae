#include "new_files.h"

#include <stdexcept>
#include <utility>

#include "files.h"

namespace common {

namespace {

std::string unfinished(const std::string& name) {
    return name + ".unfinished";
}

/// Where a file that is overwritten waits until all the new ones are in place.
std::string replaced(const std::string& name) {
    return name + ".replaced";
}

void requireFree(const std::string& name, const std::string& advice) {
    if (exists(name)) {
        throw std::runtime_error(name + " exists already; " + advice);
    }
}

/// A file that is going to be replaced may not be for everybody to read.
void keepPermissions(const std::string& name) {
    std::error_code ignored;
    const std::filesystem::file_status before = std::filesystem::status(pathOf(name), ignored);
    if (std::filesystem::is_regular_file(before)) {
        std::filesystem::permissions(pathOf(unfinished(name)), before.permissions(), ignored);
    }
}

void rename(const std::string& from, const std::string& to) {
    std::error_code reason;
    std::filesystem::rename(pathOf(from), pathOf(to), reason);
    if (reason) {
        fail("cannot rename " + from, reason);
    }
}

}  // namespace

NewFiles::NewFiles(std::vector<std::string> fileNames, bool mayOverwrite)
    : names(std::move(fileNames)), overwrite(mayOverwrite) {
    for (const std::string& name : names) {
        requirePlainFile(name);
        if (!overwrite) {
            requireFree(name, "-f overwrites it");
        }
        // Only an interrupted run leaves these behind. The second one may be somebody's only copy.
        requireFree(unfinished(name), "remove it first");
        requireFree(replaced(name), "move it away first");
    }
}

NewFiles::~NewFiles() {
    try {
        if (!settled) {
            takeBack();
        }
    } catch (const std::exception&) {
        // No memory is left to spell the names: the unfinished files stay, and their name says what they are.
    }
}

void NewFiles::startNext() {
    finishCurrent();
    const std::string& name = names.at(created);
    requireFree(unfinished(name), "remove it first");
    current.open(pathOf(unfinished(name)), std::ios::binary);
    if (!current) {
        failOnStream("cannot create " + name);
    }
    ++created;
    keepPermissions(name);
}

void NewFiles::write(const char* data, std::streamsize count) {
    if (!current.write(data, count)) {
        failOnStream("cannot write " + names.at(created - 1));
    }
}

void NewFiles::finishCurrent() {
    if (!current.is_open()) {
        return;
    }
    // What the stream still holds is written now; a disk may be full only here.
    current.close();
    if (!current) {
        failOnStream("cannot write " + names.at(created - 1));
    }
}

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

void NewFiles::giveNames() {
    for (const std::string& name : names) {
        if (!overwrite) {
            requireFree(name, "-f overwrites it");
        }
        if (exists(name)) {
            rename(name, replaced(name));
        }
        rename(unfinished(name), name);
        ++named;
    }
}

void NewFiles::removeReplaced() {
    std::string left;
    std::error_code firstReason;
    for (const std::string& name : names) {
        std::error_code reason;
        std::filesystem::remove(pathOf(replaced(name)), reason);
        if (reason && left.empty()) {
            left = replaced(name);
            firstReason = reason;
        }
    }
    if (!left.empty()) {
        fail("cannot remove " + left, firstReason);
    }
}

/// \returns the first of the files before that could not get its name back, as it is called now; empty when all have
std::string NewFiles::takeBack() {
    settled = true;
    current.close();
    std::string left;
    std::error_code ignored;
    for (std::size_t i = 0; i < created; ++i) {
        const std::string& name = names[i];
        std::filesystem::remove(pathOf(i < named ? name : unfinished(name)), ignored);
        if (exists(replaced(name))) {
            std::error_code reason;
            std::filesystem::rename(pathOf(replaced(name)), pathOf(name), reason);
            if (reason && left.empty()) {
                left = replaced(name);
            }
        }
    }
    return left;
}

std::string leftover(const std::string& name) {
    for (const std::string& other : {unfinished(name), replaced(name)}) {
        if (exists(other)) {
            return other;
        }
    }
    return {};
}

}  // namespace common
