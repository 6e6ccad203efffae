#include "output.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace {

int valid(int result) {
    if (result < 0) {
        throw std::runtime_error("the system has no descriptor for the benchmark");
    }
    return result;
}

int newTerminal() {
    const int descriptor = valid(posix_openpt(O_RDWR | O_NOCTTY));
    valid(grantpt(descriptor));
    valid(unlockpt(descriptor));
    return descriptor;
}

}  // namespace

Redirection::Redirection(int descriptor) {
    std::fflush(stdout);
    before = valid(dup(STDOUT_FILENO));
    valid(dup2(descriptor, STDOUT_FILENO));
}

Redirection::~Redirection() {
    std::fflush(stdout);
    dup2(before, STDOUT_FILENO);
    close(before);
}

Terminal::Terminal()
    : reading(newTerminal()), writing(valid(open(ptsname(reading), O_RDWR | O_NOCTTY))), reader([this] {
          char buffer[65536];
          // read() fails once the other side is closed.
          while (read(reading, buffer, sizeof buffer) > 0) {
          }
      }) {}

Terminal::~Terminal() {
    close(writing);
    reader.join();
    close(reading);
}

int Terminal::descriptor() const {
    return writing;
}

QuietTerminal::QuietTerminal() : reading(newTerminal()), writing(valid(open(ptsname(reading), O_RDWR | O_NOCTTY))) {}

QuietTerminal::~QuietTerminal() {
    close(writing);
    close(reading);
}

int QuietTerminal::descriptor() const {
    return writing;
}

void QuietTerminal::readLine() {
    char buffer[4096];
    for (ssize_t size = 1; size > 0;) {
        size = read(reading, buffer, sizeof buffer);
        if (size > 0 && buffer[size - 1] == '\r') {
            return;
        }
    }
    throw std::runtime_error("the terminal ended");
}

int nullDevice() {
    static const int descriptor = valid(open("/dev/null", O_WRONLY));
    return descriptor;
}

std::string printedBy(void (*write)()) {
    std::FILE* const file = std::tmpfile();
    if (file == nullptr) {
        throw std::runtime_error("there is no room for a temporary file");
    }
    {
        const Redirection redirection(fileno(file));
        write();
    }
    std::string text(static_cast<std::size_t>(lseek(fileno(file), 0, SEEK_END)), ' ');
    const bool complete = pread(fileno(file), text.data(), text.size(), 0) == static_cast<ssize_t>(text.size());
    std::fclose(file);
    return complete ? text : std::string();
}
