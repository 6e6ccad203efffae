// For standard libraries whose <iostream> makes the streams ready in every file that includes it, and whose streams can be
// declared without it. The build finds out.
#include "platform/standard_streams.h"

namespace std {
extern istream cin;
extern ostream cout;
}  // namespace std

namespace {

void makeReady() {
    static const std::ios_base::Init ready;
}

}  // namespace

std::ostream& Kelp::standardOutput() {
    makeReady();
    return std::cout;
}

std::istream& Kelp::standardInput() {
    makeReady();
    return std::cin;
}
