#include "forced_end.h"

#include <atomic>
#include <mutex>
#include <thread>
#include <utility>

#include "ending_signals.h"
#include "system_file.h"

namespace Kelpkit {

namespace {

// The handler sets isEnding and then reads holders. A holder counts itself and then reads isEnding. So one of them sees the other.
std::atomic<bool> isEnding{false};
std::atomic<int> holders{0};

/// The last object, which leads to the others. It changes only under the mutex while the process is not ended by force.
FilesToRemove* last = nullptr;

std::mutex& listMutex() {
    static std::mutex mutex;
    return mutex;
}

}  // namespace

NoForcedEnd::NoForcedEnd() {
    ++holders;
    while (isEnding) {
        std::this_thread::yield();
    }
}

NoForcedEnd::~NoForcedEnd() {
    --holders;
}

FilesToRemove::FilesToRemove() {
    const NoForcedEnd unchanged;
    const std::lock_guard<std::mutex> lock(listMutex());
    next = std::exchange(last, this);
    beforeForcedEnd(removeFilesByForce);
}

FilesToRemove::~FilesToRemove() {
    const NoForcedEnd unchanged;
    const std::lock_guard<std::mutex> lock(listMutex());
    FilesToRemove** link = &last;
    while (*link != this) {
        link = &(*link)->next;
    }
    *link = next;
}

void FilesToRemove::add(std::filesystem::path path, FileIdentity identity) {
    const NoForcedEnd unchanged;
    files.push_back({std::move(path), identity});
}

void FilesToRemove::clear() {
    const NoForcedEnd unchanged;
    files.clear();
}

bool removeFilesByForce() {
    isEnding = true;
    if (holders != 0) {
        isEnding = false;
        return false;
    }
    for (const FilesToRemove* each = last; each != nullptr; each = each->next) {
        for (const FilesToRemove::File& file : each->files) {
            if (identityOf(file.path) == file.identity) {
                removeFile(file.path);
            }
        }
    }
    return true;
}

}  // namespace Kelpkit
