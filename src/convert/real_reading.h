#ifndef KELPLIB_CONVERT_REAL_READING_H
#define KELPLIB_CONVERT_REAL_READING_H

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <system_error>
#include <type_traits>
#include <utility>

#include "convert/digits.h"

namespace Kelp {

/// The longest beginning of a text that a stream takes for a real number without its sign.
struct RealText {
    const char* begin;
    const char* end;
    bool complete;  ///< has a digit, and one in the exponent if there is an exponent
};

inline RealText findReal(const char* begin, const char* end) {
    const char* position = skipDigits(begin, end);
    auto digits = position - begin;
    if (position != end && *position == '.') {
        const char* const fraction = position + 1;
        position = skipDigits(fraction, end);
        digits += position - fraction;
    }
    if (digits == 0) {
        return {begin, position, false};
    }
    if (position == end || (*position != 'e' && *position != 'E')) {
        return {begin, position, true};
    }
    ++position;
    readSign(position, end);
    const char* const exponentEnd = skipDigits(position, end);
    return {begin, exponentEnd, exponentEnd != position};
}

/// The decimal point of the current C locale, seen in a number that is written with it: localeconv is not for several
/// threads.
inline std::string decimalPoint() {
    char half[32];
    const int length = std::snprintf(half, sizeof half, "%.1f", 0.5);
    return {half + 1, static_cast<std::size_t>(length) - 2};
}

/// Converts with the C library, for standard libraries whose from_chars reads no real numbers. A value too large gives
/// infinity.
template <class T>
T convertWithC(const RealText& text) {
    std::string number(text.begin, text.end);
    // glibc takes an "E" only where the current C locale has "e" for its lower case.
    std::replace(number.begin(), number.end(), 'E', 'e');
    const std::size_t point = number.find('.');
    if (point != std::string::npos) {
        number.replace(point, 1, decimalPoint());
    }
    if constexpr (std::is_same_v<T, float>) {
        return std::strtof(number.c_str(), nullptr);
    } else {
        return std::strtod(number.c_str(), nullptr);
    }
}

/// Converts with from_chars: exact on every system, where some C libraries misread texts next to powers of two.
template <class T>
auto convertReal(const RealText& text, int /*preferred*/)
    -> decltype(std::from_chars(text.begin, text.end, std::declval<T&>()), T()) {
    T value = 0;
    if (std::from_chars(text.begin, text.end, value).ec == std::errc::result_out_of_range) {
        // Too large or too small, and from_chars does not say which.
        return convertWithC<T>(text) > 1 ? std::numeric_limits<T>::infinity() : 0;
    }
    return value;
}

template <class T>
T convertReal(const RealText& text, long /*otherwise*/) {
    return convertWithC<T>(text);
}

/// Lets from_chars find the end of a number without its sign, in one go with its value, and moves `begin` there.
/// \returns false, with nothing changed, where a stream may see more or less of a number than from_chars does ("inf",
///          "1e"), or another value
template <class T>
auto readAtOnce(T& value, const char*& begin, const char* end, int /*preferred*/)
    -> decltype(std::from_chars(begin, end, value), true) {
    if (begin == end || !(isDigit(*begin) || *begin == '.')) {
        return false;
    }
    const std::from_chars_result result = std::from_chars(begin, end, value);
    if (result.ec != std::errc() || (result.ptr != end && (*result.ptr == 'e' || *result.ptr == 'E'))) {
        return false;
    }
    begin = result.ptr;
    return true;
}

template <class T>
bool readAtOnce(T& /*value*/, const char*& /*begin*/, const char* /*end*/, long /*otherwise*/) {
    return false;
}

/// Reads one real number and moves `begin` behind it. An incomplete text gives 0, a value too large for the type its
/// largest finite one.
template <class T>
T readReal(const char*& begin, const char* end) {
    const bool negative = readSign(begin, end);
    T value = 0;
    if (!readAtOnce(value, begin, end, 0)) {
        const RealText text = findReal(begin, end);
        begin = text.end;
        if (!text.complete) {
            return 0;
        }
        value = std::min(convertReal<T>(text, 0), std::numeric_limits<T>::max());
    }
    return negative ? -value : value;
}

}  // namespace Kelp

#endif
