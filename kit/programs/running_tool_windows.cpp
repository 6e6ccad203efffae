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

struct Close {
    void operator()(HANDLE handle) const {
        CloseHandle(handle);
    }
};
using Handle = std::unique_ptr<void, Close>;

Handle handleOf(HANDLE handle) {
    requireSuccess(static_cast<BOOL>(handle != nullptr && handle != INVALID_HANDLE_VALUE));
    return Handle(handle);
}

/// Opens the device without content so that the tool can inherit it.
Handle openNull() {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return handleOf(
        CreateFileW(L"NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_EXISTING, 0, nullptr));
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

/// Makes a pipe. Returns the end for writing, which the tool can inherit.
Handle openPipe(Handle& reading) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    HANDLE read = nullptr;
    HANDLE write = nullptr;
    requireSuccess(CreatePipe(&read, &write, &inherited, 0));
    reading = Handle(read);
    return Handle(write);
}

/// Appends what has arrived. Returns false if all writers have closed the pipe.
bool readInto(std::string& text, HANDLE pipe) {
    std::array<char, 4096> buffer{};
    DWORD count = 0;
    if (PeekNamedPipe(pipe, nullptr, 0, nullptr, &count, nullptr) == 0) {
        return false;
    }
    if (count > 0) {
        requireSuccess(ReadFile(pipe, buffer.data(), std::min<DWORD>(count, buffer.size()), &count, nullptr));
        text.append(buffer.data(), count);
    }
    return true;
}

/// Makes a job whose processes are killed when it is closed.
Handle createJob() {
    Handle job = handleOf(CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    requireSuccess(SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits, sizeof limits));
    return job;
}

/// Starts the tool, suspended. The application name and the name in the command line differ.
PROCESS_INFORMATION start(const std::filesystem::path& program, const std::string& name,
                          const std::vector<std::string>& arguments, const std::filesystem::path& folder, HANDLE output,
                          HANDLE errors) {
    const Handle input = openNull();
    Inheritance inheritance({input.get(), output, errors});
    STARTUPINFOEXW information{};
    information.StartupInfo.cb = sizeof information;
    information.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
    information.StartupInfo.hStdInput = input.get();
    information.StartupInfo.hStdOutput = output;
    information.StartupInfo.hStdError = errors;
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
    Handle errors;
};

RunningTool::RunningTool(const std::filesystem::path& program, const std::string& name,
                         const std::vector<std::string>& arguments, const std::filesystem::path& folder)
    : handles(std::make_unique<Handles>()) {
    const Handle output = openPipe(handles->output);
    const Handle errors = openPipe(handles->errors);
    handles->job = createJob();
    const PROCESS_INFORMATION started = start(program, name, arguments, folder, output.get(), errors.get());
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

bool RunningTool::read(std::string& output, std::string& errors, std::chrono::milliseconds longest) {
    constexpr std::chrono::milliseconds pause(10);
    const std::size_t before = output.size() + errors.size();
    const bool isOpen = readInto(output, handles->output.get());
    readInto(errors, handles->errors.get());
    if (output.size() + errors.size() == before) {
        Sleep(static_cast<DWORD>(std::min(pause, longest).count()));
    }
    return isOpen;
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
