// For libstdc++, whose <iostream> initialises the streams in every file that includes it (before version 13). The build has
// checked that std::cout can be declared without it.
#include "standard_output.h"

namespace std {
extern ostream cout;
}  // namespace std

namespace Kelpkit {

std::ostream& standardOutput() {
    static const std::ios_base::Init initialised;
    return std::cout;
}

bool flushStandardOutput() {
    // While it is synchronised with the C library, std::cout holds nothing back and need not be initialised. "true" changes nothing.
    return std::ios_base::sync_with_stdio(true) || !std::cout.flush().fail();
}

}  // namespace Kelpkit
