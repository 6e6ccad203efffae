// For libstdc++, whose <iostream> initialises the streams in every file that includes it (before version 13). The build has
// checked that std::cout can be declared without it.
#include "standard_output.h"

#include <cstring>

namespace std {
extern ostream cout;
}  // namespace std

namespace Kelpkit {

std::ostream& standardOutput() {
    static const std::ios_base::Init initialised;
    return std::cout;
}

bool flushStandardOutput() {
    // A tool that does not use std::cout does not initialise it, so its table of virtual functions is null.
    const void* table = nullptr;
    std::memcpy(&table, static_cast<const void*>(&std::cout), sizeof table);
    return table == nullptr || !std::cout.flush().fail();
}

}  // namespace Kelpkit
