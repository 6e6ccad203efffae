#include "clock_tick.h"

#include <ctime>

std::uint64_t Kelpkit::clockTick() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &time);
    return static_cast<std::uint64_t>(time.tv_sec) * 1000000000U + static_cast<std::uint64_t>(time.tv_nsec);
}
