#ifndef FLAT_PROGRESS_ESCAPED_H
#define FLAT_PROGRESS_ESCAPED_H

#include <stddef.h>

/* Copies a text with each control character, and each byte that is not UTF-8, escaped as \xNN. `target` is a buffer of
 * 4 * length bytes. Returns the number of bytes written. */
size_t escaped(char* target, const char* text, size_t length);

#endif
