#ifndef COMMON_ESCAPED_H
#define COMMON_ESCAPED_H

#include <stddef.h>  // NOLINT(modernize-deprecated-headers): C has no other one

#ifdef __cplusplus
extern "C" {
#endif

/// Copies a text with each control character, and each byte that is not UTF-8, escaped as \xNN.
/// \param target  a buffer of 4 * length bytes
/// \returns the number of bytes written
size_t common_escaped(char* target, const char* text, size_t length);

#ifdef __cplusplus
}
#endif

#endif
