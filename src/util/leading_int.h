#ifndef KELPLIB_UTIL_LEADING_INT_H
#define KELPLIB_UTIL_LEADING_INT_H

namespace Kelp {

/// Returns the number that a text starts with, as the C library's atoi does; 0 if there is none. A number that does not fit,
/// undefined for atoi, gives the nearest limit.
int leadingInt(const char* text);

}  // namespace Kelp

#endif
