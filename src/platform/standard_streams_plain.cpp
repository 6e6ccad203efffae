#include "platform/standard_streams.h"

#include <iostream>

std::ostream& Kelp::standardOutput() {
    return std::cout;
}

std::istream& Kelp::standardInput() {
    return std::cin;
}
