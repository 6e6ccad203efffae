#ifndef COMMON_ESCAPED_H
#define COMMON_ESCAPED_H

#include <stddef.h>  // NOLINT(modernize-deprecated-headers): C has no other one

#ifdef __cplusplus
extern "C" {
#endif

/// Copies a text as a terminal may get it: each control character, and each byte that is not UTF-8, becomes \xNN.
/// \param target  room for four times as many bytes
/// \returns the number of bytes written
size_t common_escaped(char* target, const char* text, size_t length);

#ifdef __cplusplus
}
#endif

#endif
