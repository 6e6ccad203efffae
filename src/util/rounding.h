#ifndef KELPLIB_UTIL_ROUNDING_H
#define KELPLIB_UTIL_ROUNDING_H

#include <cfenv>

namespace Kelp {

/// Whether floating-point arithmetic rounds to nearest, as it does unless the program has changed the mode. The shortcuts that
/// take a number's digits from products and quotients rely on it.
inline bool roundsToNearest() {
    return std::fegetround() == FE_TONEAREST;
}

}  // namespace Kelp

#endif
