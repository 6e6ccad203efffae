#include "escaped.h"

/* The first and second bytes of printable characters in UTF-8: no control characters (below U+00A0), no surrogates, nothing
 * beyond U+10FFFF. */
struct form {
    unsigned char first_from, first_to;
    unsigned char second_from, second_to;
    size_t bytes;
};

static const struct form forms[] = {
    {0xC2, 0xC2, 0xA0, 0xBF, 2}, {0xC3, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
    {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3},
    {0xF0, 0xF0, 0x90, 0xBF, 4}, {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
};

static int has_form(const unsigned char* text, size_t length, const struct form* form) {
    size_t i;
    if (length < form->bytes || text[0] < form->first_from || text[0] > form->first_to || text[1] < form->second_from ||
        text[1] > form->second_to) {
        return 0;
    }
    for (i = 2; i < form->bytes; ++i) {
        if (text[i] < 0x80 || text[i] > 0xBF) {
            return 0;
        }
    }
    return 1;
}

/* Returns the number of bytes of the printable character at the beginning of the text; 0 if there is none. */
static size_t printable_bytes(const unsigned char* text, size_t length) {
    size_t i;
    if (text[0] >= 0x20 && text[0] < 0x7F) {
        return 1;
    }
    for (i = 0; i < sizeof forms / sizeof *forms; ++i) {
        if (has_form(text, length, &forms[i])) {
            return forms[i].bytes;
        }
    }
    return 0;
}

size_t escaped(char* target, const char* text, size_t length) {
    static const char digits[] = "0123456789abcdef";
    const unsigned char* const bytes = (const unsigned char*)text;
    char* end = target;
    size_t i = 0;
    while (i < length) {
        size_t count = printable_bytes(bytes + i, length - i);
        if (count == 0) {
            *end++ = '\\';
            *end++ = 'x';
            *end++ = digits[bytes[i] >> 4];
            *end++ = digits[bytes[i] & 15];
            ++i;
        }
        for (; count > 0; --count) {
            *end++ = text[i++];
        }
    }
    return (size_t)(end - target);
}
