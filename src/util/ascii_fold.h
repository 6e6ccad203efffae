#ifndef KELPLIB_UTIL_ASCII_FOLD_H
#define KELPLIB_UTIL_ASCII_FOLD_H

namespace Kelp {

/// Whether two C strings are equal when the 26 ASCII letters count without their case, in every locale.
bool equalIgnoringAsciiCase(const char* left, const char* right);

}  // namespace Kelp

#endif
