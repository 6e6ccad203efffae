#include "command_line/argv_tokens.h"

#include <algorithm>
#include <stdexcept>

namespace Kelp {

namespace {

constexpr char noToken[] = "basic_string: construction from null is not valid";

}  // namespace

const char* tokenAt(int argc, char** argv, int position) {
    // argv[argc] exists, although it is usually null.
    if (position > argc || argv == nullptr || argv[position] == nullptr) {
        throw std::logic_error(noToken);
    }
    return argv[position];
}

void checkTokens(int argc, char** argv) {
    if (argc > 0 && (argv == nullptr || std::find(argv, argv + argc, nullptr) != argv + argc)) {
        throw std::logic_error(noToken);
    }
}

}  // namespace Kelp
