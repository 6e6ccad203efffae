// A plugin that uses the library, for a program that does not.
#include <kelplib/Kelp.h>

extern "C" void leaveReader();

extern "C" void leaveReader() {
    Kelp::waitOrPressKey(0, "left");
}
