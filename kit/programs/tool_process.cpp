#include "tool_process.h"

#include <kelpkit/Files.h>
#include <kelpkit/Interruption.h>

#include <array>
#include <random>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

#include "running_tool.h"

namespace Kelpkit::programs {

namespace {

using Clock = std::chrono::steady_clock;

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

/// A new empty folder that only this user can enter. It is removed with its content.
class EmptyFolder {
public:
    EmptyFolder() {
        std::random_device random;
        const std::string name = "kelp-doc-" + std::to_string(random()) + "-" + std::to_string(random());
        std::error_code reason;
        folder = std::filesystem::temp_directory_path(reason) / name;
        if (reason) {
            Kelpkit::fail("cannot use the folder for temporary files", reason);
        }
        if (!std::filesystem::create_directory(folder, reason)) {
            Kelpkit::fail("cannot create " + folder.u8string(), reason);
        }
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all, reason);
    }
    ~EmptyFolder() {
        std::error_code reason;
        std::filesystem::remove_all(folder, reason);
        if (reason) {
            makeRemovable(folder);
            std::filesystem::remove_all(folder, reason);
        }
    }
    EmptyFolder(const EmptyFolder&) = delete;
    EmptyFolder& operator=(const EmptyFolder&) = delete;
    EmptyFolder(EmptyFolder&&) = delete;
    EmptyFolder& operator=(EmptyFolder&&) = delete;

    const std::filesystem::path& path() const {
        return folder;
    }

private:
    std::filesystem::path folder;
};

/// Counts the time down.
class Deadline {
public:
    Deadline(const std::string& program, std::chrono::milliseconds time) : program(program), end(Clock::now() + time) {}

    /// Returns the time that is left. Throws if there is none, or if a signal asked this process to end.
    std::chrono::milliseconds left() const {
        checkInterruption();
        const auto rest = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
        if (rest.count() <= 0) {
            throw std::runtime_error(program + " does not end within its time");
        }
        return rest;
    }

private:
    const std::string& program;
    Clock::time_point end;
};

std::string readAll(RunningTool& tool, const Deadline& deadline, std::size_t most) {
    std::string text;
    std::array<char, 4096> buffer{};
    while (text.size() <= most) {
        const std::optional<std::size_t> count = tool.read(buffer.data(), buffer.size(), deadline.left());
        if (count == 0U) {
            break;
        }
        text.append(buffer.data(), count.value_or(0));
    }
    return text;
}

void waitForEnd(const RunningTool& tool, const Deadline& deadline) {
    constexpr std::chrono::milliseconds pause(10);
    while (!tool.hasEnded()) {
        std::this_thread::sleep_for(std::min(pause, deadline.left()));
    }
}

}  // namespace

std::string readHelp(const std::string& program, const std::string& name, const RunLimits& limits) {
    noteInterruptions();
    const Deadline deadline(program, limits.time);
    const EmptyFolder folder;
    std::optional<RunningTool> tool;
    try {
        tool.emplace(std::filesystem::absolute(pathOf(program)), name, folder.path());
    } catch (const std::system_error& error) {
        fail("cannot run " + program, error.code());
    }
    std::string text = readAll(*tool, deadline, limits.bytes);
    if (text.size() > limits.bytes) {
        throw std::runtime_error(program + " prints more than " + std::to_string(limits.bytes) + " bytes");
    }
    waitForEnd(*tool, deadline);
    if (const std::string problem = tool->finish(); !problem.empty()) {
        throw std::runtime_error(program + " " + problem);
    }
    return text;
}

}  // namespace Kelpkit::programs
