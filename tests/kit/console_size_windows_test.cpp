#include <fcntl.h>
#include <gtest/gtest.h>
#include <io.h>
#include <windows.h>

#include <cstdio>
#include <string>

#include "console_size.h"

namespace {

/// Returns the columns that consoleSize() finds when standard output is a named pipe.
int columnsOfPipe(const std::string& name) {
    const std::string path = R"(\\.\pipe\)" + name;
    const HANDLE server =
        CreateNamedPipeA(path.c_str(), PIPE_ACCESS_INBOUND, PIPE_TYPE_BYTE, 1, 4096, 4096, 0, nullptr);
    const HANDLE client = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    const int descriptor = _open_osfhandle(reinterpret_cast<intptr_t>(client), _O_BINARY);
    std::fflush(stdout);
    const int before = _dup(1);
    _dup2(descriptor, 1);
    const Kelpkit::ConsoleSize size = Kelpkit::consoleSize();
    _dup2(before, 1);
    _close(before);
    _close(descriptor);
    CloseHandle(server);
    return size.columns;
}

TEST(ConsoleSizeWindows, TerminalsOfMsysArePipes) {
    EXPECT_EQ(columnsOfPipe("msys-1888ae32e00d56aa-pty0-to-master"), 80);
    EXPECT_EQ(columnsOfPipe("cygwin-e022582115c10879-pty11-to-master-nat"), 80);
    EXPECT_EQ(columnsOfPipe("msys-1888ae32e00d56aa-2716-0x2"), 0) << "an ordinary pipe of MSYS";
    EXPECT_EQ(columnsOfPipe("other-msys-1-pty0-to-master"), 0);
    EXPECT_EQ(columnsOfPipe("kelpkit"), 0);
    EXPECT_EQ(columnsOfPipe(std::string(250, 'x')), 0);
}

}  // namespace
