#include "observer_events.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <mutex>
#include <set>

#include "observer_report.h"

namespace Kelpkit::programs::observer {

namespace {

struct Report {
    std::string name;  ///< of its file; empty if there is none
    std::string process;
    int argumentCount = 0;
    char** arguments = nullptr;
    std::mutex mutex;
    std::set<std::string> queries;
    std::set<const void*> otherReaders;  ///< those with another command line
};

Report& report() {
    static Report& only = *new Report;  // A tool may use the library until its last moment.
    return only;
}

[[gnu::constructor]] void start(int argc, char** argv) {
    if (const char* const path = std::getenv(reportVariable)) {
        report().name = path;
    }
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    report().process = std::to_string(getpid()) + "-" + std::to_string(now);
    report().argumentCount = argc;
    report().arguments = argv;
}

/// Opens the file each time, as tools may close descriptors. Writes once, as other processes may write. A report that does not
/// arrive is missed by its reader.
void append(const std::string& events) {
    const int errorNumber = errno;
    const std::string text = textOf({"process", report().process}) + events;
    const std::string& name = report().name;
    const int file = name.empty() ? -1 : open(name.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC | O_NOFOLLOW);
    if (file != -1) {
        const ssize_t ignored = write(file, text.data(), text.size());
        static_cast<void>(ignored);
        close(file);
    }
    errno = errorNumber;
}

}  // namespace

std::string textOf(Event fields) {
    std::string text;
    for (const std::string_view each : fields) {
        text += field(each);
    }
    return field(text);
}

void addTool(const std::string& text) {
    const std::lock_guard<std::mutex> lock(report().mutex);
    report().queries.clear();
    append(text);
}

void add(Event fields) {
    const std::lock_guard<std::mutex> lock(report().mutex);
    const std::string text = textOf(fields);
    if (report().queries.insert(text).second) {
        append(text);
    }
}

void noteReader(const void* reader, bool isOwn) {
    const std::lock_guard<std::mutex> lock(report().mutex);
    if (isOwn) {
        report().otherReaders.erase(reader);
    } else {
        report().otherReaders.insert(reader);
    }
}

void addQuery(const void* reader, Event fields) {
    std::unique_lock<std::mutex> lock(report().mutex);
    const bool isOther = report().otherReaders.count(reader) != 0;
    lock.unlock();
    if (!isOther) {
        add(fields);
    }
}

bool isOwn(int argc, char** argv) {
    bool isSame = argc == report().argumentCount && argc > 1;
    for (int i = 1; isSame && i < argc; ++i) {
        isSame = argv[i] != nullptr && std::string_view(argv[i]) == report().arguments[i];
    }
    return isSame;
}

std::string_view ownerOf(int argc, char** argv) {
    if (isOwn(argc, argv)) {
        return "own";
    }
    const bool isOfKit = argc == 2 && argv[0] != nullptr && argv[1] != nullptr && report().argumentCount > 0 &&
                         std::string_view(argv[0]) == report().arguments[0] && std::string_view(argv[1]) == ".";
    return isOfKit ? "kit" : "other";
}

[[gnu::noinline]] void* next() {
    Dl_info caller{};
    void* function = nullptr;
    if (dladdr(__builtin_return_address(0), &caller) != 0 && caller.dli_sname != nullptr) {
        function = dlsym(RTLD_NEXT, caller.dli_sname);
    }
    if (function == nullptr) {
        std::abort();
    }
    return function;
}

bool isInner(const void* returnAddress, const void* function) {
    Dl_info caller{};
    Dl_info library{};
    return dladdr(returnAddress, &caller) != 0 && dladdr(function, &library) != 0 &&
           caller.dli_fbase == library.dli_fbase;
}

}  // namespace Kelpkit::programs::observer
