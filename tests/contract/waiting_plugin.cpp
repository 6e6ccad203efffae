// A plugin that uses the library, for a program that is not linked with it.
#include <kelplib/Kelp.h>

extern "C" void leaveReader();

extern "C" void leaveReader() {
    Kelp::waitOrPressKey(0, "left");
}
