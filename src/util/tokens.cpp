#include "util/tokens.h"

#include <stdexcept>

namespace Kelp {

std::string tokenAt(int argc, char** argv, int position) {
    // argv[argc] is there, though it is null as a rule.
    if (position > argc || argv == nullptr || argv[position] == nullptr) {
        throw std::logic_error("basic_string: construction from null is not valid");
    }
    return argv[position];
}

}  // namespace Kelp
