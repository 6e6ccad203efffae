#include <iostream>

#include "standard_output.h"

namespace Kelpkit {

std::ostream& standardOutput() {
    return std::cout;
}

bool flushStandardOutput() {
    return !std::cout.flush().fail();
}

}  // namespace Kelpkit
