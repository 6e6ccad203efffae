// Looks at a tool from outside, for parts_test.py:
//
//     parts_probe resources TOOL                  prints the version information and the manifest
//     parts_probe run STREAMS TOOL ARGUMENTS      runs the tool in this console and prints the state of it before and after, and the
//                                                 tool's exit status; STREAMS names those of "ioe" that are the console's
//     parts_probe twice TOOL FIRST                runs two tools at once; FIRST (0 or 1) is the one that ends first

#include <windows.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "console_state.h"

namespace {

HANDLE open(const char* name) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileA(name, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                       OPEN_EXISTING, 0, nullptr);
}

HANDLE start(const std::string& streams, const std::string& commandLine) {
    const auto stream = [&streams](char letter, const char* console) {
        return streams.find(letter) != std::string::npos ? open(console) : open("NUL");
    };
    STARTUPINFOA information{};
    information.cb = sizeof information;
    information.dwFlags = STARTF_USESTDHANDLES;
    information.hStdInput = stream('i', "CONIN$");
    information.hStdOutput = stream('o', "CONOUT$");
    // Without the console, it is the file of the terminal, for the output of the tool.
    information.hStdError = streams.find('e') != std::string::npos ? open("CONOUT$") : GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION process{};
    std::string line = commandLine;
    if (CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &information, &process) ==
        0) {
        std::exit(127);
    }
    return process.hProcess;
}

/// Makes the state known in which the tools find the console.
void prepareConsole() {
    SetConsoleOutputCP(850);
    SetConsoleCP(852);
    SetConsoleMode(open("CONOUT$"), ENABLE_PROCESSED_OUTPUT | ENABLE_WRAP_AT_EOL_OUTPUT);
    SetConsoleCtrlHandler([](DWORD) { return TRUE; }, TRUE);
    printState("before");
}

void run(const std::string& streams, const std::string& commandLine) {
    prepareConsole();
    const HANDLE process = start(streams, commandLine);
    WaitForSingleObject(process, INFINITE);
    DWORD status = 0;
    GetExitCodeProcess(process, &status);
    printState("after");
    static_cast<void>(std::fprintf(stderr, "status: %lx\n", status));
}

struct RunningTool {
    HANDLE end;
    HANDLE process;
};

RunningTool startWaiting(const std::string& tool, int number) {
    const std::string id = std::to_string(GetCurrentProcessId()) + "-" + std::to_string(number);
    const std::string readyName = "kelplib-ready-" + id;
    const std::string endName = "kelplib-end-" + id;
    const HANDLE ready = CreateEventA(nullptr, FALSE, FALSE, readyName.c_str());
    const HANDLE end = CreateEventA(nullptr, FALSE, FALSE, endName.c_str());
    const HANDLE process = start("io", tool + " wait " + readyName + " " + endName);
    WaitForSingleObject(ready, INFINITE);
    return {end, process};
}

void runTwice(const std::string& tool, int first) {
    prepareConsole();
    const RunningTool tools[] = {startWaiting(tool, 0), startWaiting(tool, 1)};
    for (const int number : {first, 1 - first}) {
        SetEvent(tools[number].end);
        WaitForSingleObject(tools[number].process, INFINITE);
    }
    printState("after");
}

std::vector<char> versionInformation(const char* tool) {
    DWORD ignored = 0;
    std::vector<char> data(GetFileVersionInfoSizeA(tool, &ignored));
    GetFileVersionInfoA(tool, 0, static_cast<DWORD>(data.size()), data.data());
    return data;
}

void printUtf8(const wchar_t* text) {
    char utf8[4096];
    WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8, sizeof utf8, nullptr, nullptr);
    std::puts(utf8);
}

void printResources(const char* tool) {
    const std::vector<char> data = versionInformation(tool);
    void* found = nullptr;
    UINT size = 0;
    if (VerQueryValueW(data.data(), L"\\", &found, &size) != 0) {
        const auto* const fixed = static_cast<const VS_FIXEDFILEINFO*>(found);
        std::printf("%lx.%lx %lx.%lx %lx %lx\n", fixed->dwFileVersionMS, fixed->dwFileVersionLS,
                    fixed->dwProductVersionMS, fixed->dwProductVersionLS, fixed->dwFileOS, fixed->dwFileType);
    }
    for (const wchar_t* name : {L"FileDescription", L"FileVersion", L"InternalName", L"OriginalFilename",
                                L"ProductName", L"ProductVersion"}) {
        if (VerQueryValueW(data.data(), (L"\\StringFileInfo\\000004b0\\" + std::wstring(name)).c_str(), &found,
                           &size) != 0) {
            printUtf8(static_cast<const wchar_t*>(found));
        }
    }
    const HMODULE module = LoadLibraryExA(tool, nullptr, LOAD_LIBRARY_AS_DATAFILE);
    const HRSRC manifest = FindResourceA(module, MAKEINTRESOURCEA(1), MAKEINTRESOURCEA(24));
    std::fwrite(LockResource(LoadResource(module, manifest)), 1, SizeofResource(module, manifest), stdout);
}

std::string joined(char** words) {
    std::string line;
    for (; *words != nullptr; ++words) {
        line += std::string(*words) + " ";
    }
    return line;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc > 3 && std::strcmp(argv[1], "run") == 0) {
        run(argv[2], joined(argv + 3));
    } else if (argc == 4 && std::strcmp(argv[1], "twice") == 0) {
        runTwice(argv[2], std::atoi(argv[3]));
    } else if (argc == 3 && std::strcmp(argv[1], "resources") == 0) {
        printResources(argv[2]);
    } else {
        return 2;
    }
    return EXIT_SUCCESS;
}
