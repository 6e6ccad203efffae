#include "running_tool.h"

#include <kelpkit/Files.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <system_error>
#include <utility>
#include <vector>

namespace Kelpkit::programs {

namespace {

void requireSuccess(BOOL succeeded) {
    if (succeeded == 0) {
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
    }
}

class Handle {
public:
    Handle() = default;
    explicit Handle(HANDLE handle) : handle(handle) {
        requireSuccess(static_cast<BOOL>(handle != nullptr && handle != INVALID_HANDLE_VALUE));
    }
    ~Handle() {
        reset();
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    Handle(Handle&& other) noexcept : handle(other.release()) {}
    Handle& operator=(Handle&& other) noexcept {
        reset();
        handle = other.release();
        return *this;
    }

    HANDLE get() const {
        return handle;
    }
    void reset() {
        if (handle != nullptr) {
            CloseHandle(handle);
            handle = nullptr;
        }
    }

private:
    HANDLE release() {
        return std::exchange(handle, nullptr);
    }

    HANDLE handle = nullptr;
};

/// Opens the device without content so that the tool can inherit it.
Handle openNull(DWORD access) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return Handle(
        CreateFileW(L"NUL", access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_EXISTING, 0, nullptr));
}

/// The handles that the tool inherits, and no others.
class Inheritance {
public:
    explicit Inheritance(std::vector<HANDLE> inherited) : handles(std::move(inherited)) {
        SIZE_T size = 0;
        InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
        memory.resize(size);
        requireSuccess(InitializeProcThreadAttributeList(list(), 1, 0, &size));
        requireSuccess(UpdateProcThreadAttribute(list(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles.data(),
                                                 handles.size() * sizeof(HANDLE), nullptr, nullptr));
    }
    ~Inheritance() {
        DeleteProcThreadAttributeList(list());
    }
    Inheritance(const Inheritance&) = delete;
    Inheritance& operator=(const Inheritance&) = delete;
    Inheritance(Inheritance&&) = delete;
    Inheritance& operator=(Inheritance&&) = delete;

    LPPROC_THREAD_ATTRIBUTE_LIST list() {
        return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(memory.data());
    }

private:
    std::vector<HANDLE> handles;
    std::vector<unsigned char> memory;
};

/// Makes a job whose processes are killed when it is closed.
Handle createJob() {
    Handle job(CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    requireSuccess(SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits, sizeof limits));
    return job;
}

/// Starts the tool, suspended. The application name and the name in the command line differ.
PROCESS_INFORMATION start(const std::filesystem::path& program, const std::string& name,
                          const std::vector<std::string>& arguments, const std::filesystem::path& folder,
                          HANDLE output) {
    const Handle input = openNull(GENERIC_READ);
    const Handle errors = openNull(GENERIC_WRITE);
    Inheritance inheritance({input.get(), output, errors.get()});
    STARTUPINFOEXW information{};
    information.StartupInfo.cb = sizeof information;
    information.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
    information.StartupInfo.hStdInput = input.get();
    information.StartupInfo.hStdOutput = output;
    information.StartupInfo.hStdError = errors.get();
    information.lpAttributeList = inheritance.list();
    std::wstring commandLine = L"\"" + pathOf(name).wstring() + L"\"";
    for (const std::string& argument : arguments) {
        commandLine += L" " + pathOf(argument).wstring();
    }
    constexpr DWORD flags =
        CREATE_SUSPENDED | CREATE_NO_WINDOW | CREATE_NEW_PROCESS_GROUP | EXTENDED_STARTUPINFO_PRESENT;
    PROCESS_INFORMATION process{};
    requireSuccess(CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, TRUE, flags, nullptr,
                                  folder.c_str(), &information.StartupInfo, &process));
    return process;
}

}  // namespace

struct RunningTool::Handles {
    Handle job;
    Handle process;
    Handle output;
};

RunningTool::RunningTool(const std::filesystem::path& program, const std::string& name,
                         const std::vector<std::string>& arguments, const std::filesystem::path& folder)
    : handles(std::make_unique<Handles>()) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE reading = nullptr;
    HANDLE writing = nullptr;
    requireSuccess(CreatePipe(&reading, &writing, &inherited, 0));
    handles->output = Handle(reading);
    const Handle output(writing);
    handles->job = createJob();
    const PROCESS_INFORMATION started = start(program, name, arguments, folder, output.get());
    handles->process = Handle(started.hProcess);
    const Handle thread(started.hThread);
    try {
        requireSuccess(AssignProcessToJobObject(handles->job.get(), started.hProcess));
    } catch (const std::system_error&) {
        TerminateProcess(started.hProcess, 1);
        throw;
    }
    ResumeThread(started.hThread);
}

RunningTool::~RunningTool() {
    if (handles->job.get() != nullptr) {
        finish();
    }
}

std::optional<std::size_t> RunningTool::read(char* data, std::size_t count, std::chrono::milliseconds longest) {
    constexpr std::chrono::milliseconds pause(10);
    DWORD available = 0;
    if (PeekNamedPipe(handles->output.get(), nullptr, 0, nullptr, &available, nullptr) == 0) {
        return 0;  // all writers have closed it
    }
    if (available == 0) {
        Sleep(static_cast<DWORD>(std::min(pause, longest).count()));
        return std::nullopt;
    }
    DWORD got = 0;
    const auto most = static_cast<DWORD>(std::min<std::size_t>(count, available));
    requireSuccess(ReadFile(handles->output.get(), data, most, &got, nullptr));
    return got;
}

bool RunningTool::hasEnded() const {
    return WaitForSingleObject(handles->process.get(), 0) == WAIT_OBJECT_0;
}

std::string RunningTool::finish() {
    DWORD status = 0;
    if (!hasEnded()) {
        TerminateJobObject(handles->job.get(), 1);
        WaitForSingleObject(handles->process.get(), INFINITE);
    }
    GetExitCodeProcess(handles->process.get(), &status);
    handles->job.reset();
    return status == 0 ? "" : "ended with exit status " + std::to_string(status);
}

}  // namespace Kelpkit::programs
