#ifndef KELPLIB_UTIL_ROUNDING_H
#define KELPLIB_UTIL_ROUNDING_H

#include <cfenv>

namespace Kelp {

/// Whether arithmetic rounds to the nearest number, as it does unless a program has asked for something else. Only then do
/// a product and a quotient tell what a number's digits are.
inline bool roundsToNearest() {
    return std::fegetround() == FE_TONEAREST;
}

}  // namespace Kelp

#endif
