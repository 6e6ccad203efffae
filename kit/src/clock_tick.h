#ifndef KELPKIT_CLOCK_TICK_H
#define KELPKIT_CLOCK_TICK_H

#include <cstdint>

namespace Kelpkit {

/// Returns a number that changes every few milliseconds, or on Windows every 16. Reading it costs less than reading the time.
std::uint64_t clockTick();

}  // namespace Kelpkit

#endif
