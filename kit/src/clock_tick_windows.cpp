#include <windows.h>

#include "clock_tick.h"

std::uint64_t Kelpkit::clockTick() {
    return GetTickCount64();
}
