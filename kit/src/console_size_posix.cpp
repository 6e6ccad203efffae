#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <string_view>

#include "console_size.h"

namespace Kelpkit {

ConsoleSize consoleSize() {
    winsize size{};
    const char* const terminal = std::getenv("TERM");
    // A dumb terminal cannot move its cursor up.
    const bool isDumb = terminal != nullptr && std::string_view(terminal) == "dumb";
    if (!isDumb) {
        // Changes nothing if standard output is no console.
        ioctl(STDOUT_FILENO, TIOCGWINSZ, &size);
    }
    return {size.ws_col, size.ws_row};
}

}  // namespace Kelpkit
