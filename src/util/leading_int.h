#ifndef KELPLIB_UTIL_LEADING_INT_H
#define KELPLIB_UTIL_LEADING_INT_H

namespace Kelp {

/// What the C library's atoi makes of a text: the number at its beginning, 0 when there is none. A number that does not fit,
/// of which C says nothing, becomes the nearest limit.
int leadingInt(const char* text);

}  // namespace Kelp

#endif
