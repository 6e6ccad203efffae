#include "running_tool.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

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
        close(ends[0]);
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
    void closeWriting() {
        if (ends[1] != -1) {
            close(ends[1]);
            ends[1] = -1;
        }
    }

private:
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

    void prepare(const std::filesystem::path& folder, int output) {
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
            posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0),
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
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    StartPlan plan;
    plan.prepare(folder, handles->output.writing());
    requireSuccess(
        posix_spawn(&handles->process, program.c_str(), &plan.actions, &plan.attributes, pointers.data(), environ));
    handles->output.closeWriting();
}

RunningTool::~RunningTool() {
    if (handles->process != -1) {
        finish();
    }
}

std::optional<std::size_t> RunningTool::read(char* data, std::size_t count, std::chrono::milliseconds longest) {
    pollfd output{handles->output.reading(), POLLIN, 0};
    const auto wait = std::min<std::chrono::milliseconds::rep>(longest.count(), INT_MAX);
    if (poll(&output, 1, static_cast<int>(wait)) <= 0) {
        return std::nullopt;
    }
    const ssize_t got = ::read(handles->output.reading(), data, count);
    return got < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(got));
}

bool RunningTool::hasEnded() const {
    siginfo_t about{};
    const int flags = WEXITED | WNOHANG | WNOWAIT;
    return waitid(P_PID, static_cast<id_t>(handles->process), &about, flags) == 0 && about.si_pid != 0;
}

std::string RunningTool::finish() {
    int status = 0;
    kill(-handles->process, SIGKILL);
    while (waitpid(handles->process, &status, 0) == -1 && errno == EINTR) {
    }
    handles->process = -1;
    if (WIFSIGNALED(status)) {
        return "ended by signal " + std::to_string(WTERMSIG(status));
    }
    const int exitStatus = WEXITSTATUS(status);
    return exitStatus == 0 ? "" : "ended with exit status " + std::to_string(exitStatus);
}

}  // namespace Kelpkit::programs
