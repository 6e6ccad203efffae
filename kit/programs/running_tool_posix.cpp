#include "running_tool.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <system_error>

namespace Kelpkit::programs {

namespace {

void requireSuccess(int errorNumber) {
    if (errorNumber != 0) {
        throw std::system_error(errorNumber, std::generic_category());
    }
}

class Pipe {
public:
    Pipe() {
        requireSuccess(pipe2(ends.data(), O_CLOEXEC) == 0 ? 0 : errno);
    }
    ~Pipe() {
        closeReading();
        closeWriting();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    Pipe(Pipe&&) = delete;
    Pipe& operator=(Pipe&&) = delete;

    int reading() const {
        return ends[0];
    }
    int writing() const {
        return ends[1];
    }
    void closeReading() {
        closeEnd(ends[0]);
    }
    void closeWriting() {
        closeEnd(ends[1]);
    }

    /// Appends what has arrived. Closes the pipe at its end.
    void readInto(std::string& text) {
        std::array<char, 4096> buffer{};
        const ssize_t count = read(reading(), buffer.data(), buffer.size());
        if (count == 0) {
            closeReading();
        } else if (count > 0) {
            text.append(buffer.data(), static_cast<std::size_t>(count));
        }
    }

private:
    static void closeEnd(int& end) {
        if (end != -1) {
            close(end);
            end = -1;
        }
    }

    std::array<int, 2> ends{-1, -1};
};

/// How the tool is started.
class StartPlan {
public:
    StartPlan() {
        posix_spawnattr_init(&attributes);
        posix_spawn_file_actions_init(&actions);
    }
    ~StartPlan() {
        posix_spawnattr_destroy(&attributes);
        posix_spawn_file_actions_destroy(&actions);
    }
    StartPlan(const StartPlan&) = delete;
    StartPlan& operator=(const StartPlan&) = delete;
    StartPlan(StartPlan&&) = delete;
    StartPlan& operator=(StartPlan&&) = delete;

    void prepare(const std::filesystem::path& folder, int output, int errors) {
        sigset_t none;
        sigemptyset(&none);
        sigset_t usual;
        sigemptyset(&usual);
        sigaddset(&usual, SIGCHLD);
        sigaddset(&usual, SIGPIPE);
        const std::array<int, 7> results{
            posix_spawnattr_setsigmask(&attributes, &none), posix_spawnattr_setsigdefault(&attributes, &usual),
            // A session of its own has no terminal, and is a process group.
            posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF),
            posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0),
            posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO),
            posix_spawn_file_actions_adddup2(&actions, errors, STDERR_FILENO),
            posix_spawn_file_actions_addchdir_np(&actions, folder.c_str())};
        for (const int result : results) {
            requireSuccess(result);
        }
    }

    posix_spawnattr_t attributes{};
    posix_spawn_file_actions_t actions{};
};

}  // namespace

struct RunningTool::Handles {
    Pipe output;
    Pipe errors;
    pid_t process = -1;
};

RunningTool::RunningTool(const std::filesystem::path& program, const std::string& name,
                         const std::vector<std::string>& arguments, const std::filesystem::path& folder)
    : handles(std::make_unique<Handles>()) {
    // A caller may have left it ignored. The system would then drop the exit status of the tool.
    std::signal(SIGCHLD, SIG_DFL);
    std::vector<std::string> words{name};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    StartPlan plan;
    plan.prepare(folder, handles->output.writing(), handles->errors.writing());
    requireSuccess(
        posix_spawn(&handles->process, program.c_str(), &plan.actions, &plan.attributes, pointers.data(), environ));
    handles->output.closeWriting();
    handles->errors.closeWriting();
}

RunningTool::~RunningTool() {
    if (handles->process != -1) {
        finish();
    }
}

bool RunningTool::read(std::string& output, std::string& errors, std::chrono::milliseconds longest) {
    // poll() leaves out a closed end, which is -1.
    std::array<pollfd, 2> ends{{{handles->output.reading(), POLLIN, 0}, {handles->errors.reading(), POLLIN, 0}}};
    const auto wait = std::min<std::chrono::milliseconds::rep>(longest.count(), INT_MAX);
    if (poll(ends.data(), ends.size(), static_cast<int>(wait)) > 0) {
        if (ends[0].revents != 0) {
            handles->output.readInto(output);
        }
        if (ends[1].revents != 0) {
            handles->errors.readInto(errors);
        }
    }
    return handles->output.reading() != -1;
}

bool RunningTool::hasEnded() const {
    siginfo_t about{};
    const int flags = WEXITED | WNOHANG | WNOWAIT;
    return waitid(P_PID, static_cast<id_t>(handles->process), &about, flags) == 0 && about.si_pid != 0;
}

std::string RunningTool::finish() {
    constexpr int pauses = 50;
    constexpr int milliseconds = 10;
    int status = 0;
    kill(-handles->process, SIGKILL);
    // A tool that has become another user cannot be killed.
    for (int i = 0; i < pauses && waitpid(handles->process, &status, WNOHANG) == 0; ++i) {
        poll(nullptr, 0, milliseconds);
    }
    handles->process = -1;
    if (WIFSIGNALED(status)) {
        return "ended by signal " + std::to_string(WTERMSIG(status));
    }
    const int exitStatus = WEXITSTATUS(status);
    return exitStatus == 0 ? "" : "ended with exit status " + std::to_string(exitStatus);
}

}  // namespace Kelpkit::programs
