#ifndef KELPLIB_CONVERT_NUMBER_READING_H
#define KELPLIB_CONVERT_NUMBER_READING_H

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <string_view>
#include <system_error>
#include <type_traits>
#include <utility>

#include "convert/localized_text.h"

/// \file
/// Reads one number as the formatted extraction of a stream does, with the same result on every standard library.
///
/// A function that takes `begin` by reference moves it past what it reads.

namespace Kelp {

inline bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

inline void skipDigits(const char*& begin, const char* end) {
    while (begin != end && isDigit(*begin)) {
        ++begin;
    }
}

/// Skips the characters that are blank in the classic locale.
inline void skipBlanks(const char*& begin, const char* end) {
    while (begin != end && (*begin == ' ' || (*begin >= '\t' && *begin <= '\r'))) {
        ++begin;
    }
}

/// Reads an optional sign.
/// \returns true for "-"
inline bool readSign(const char*& begin, const char* end) {
    const bool negative = begin != end && *begin == '-';
    if (begin != end && (*begin == '-' || *begin == '+')) {
        ++begin;
    }
    return negative;
}

/// Reads an optional sign and digits. A number that does not fit gives the nearest limit. An unsigned type negates modulo its
/// range as long as the magnitude fits.
template <class T>
T readInteger(const char*& begin, const char* end) {
    using Limits = std::numeric_limits<T>;
    constexpr auto limit = static_cast<unsigned long long>(Limits::max());
    constexpr auto widest = std::numeric_limits<unsigned long long>::max();
    const bool negative = readSign(begin, end);
    unsigned long long magnitude = 0;
    // A copy stays in a register, which a reference to a character pointer does not.
    const char* position = begin;
    for (; position != end; ++position) {
        const auto digit = static_cast<unsigned char>(*position - '0');
        if (digit > 9) {
            break;
        }
        // In narrower types the comparison with the limit comes before the magnitude can wrap.
        const bool wraps = limit == widest && magnitude > (widest - digit) / 10;
        magnitude = magnitude * 10 + digit;
        if (wraps || magnitude > limit) {
            begin = position;
            // The magnitude of the lowest signed number exceeds the limit too and also gives the lowest number.
            return negative && Limits::is_signed ? Limits::lowest() : Limits::max();
        }
    }
    begin = position;
    // Unsigned subtraction wraps. The conversion gives a signed type the negative value itself.
    return static_cast<T>(negative ? 0 - magnitude : magnitude);
}

/// The longest prefix of a text that a stream takes as a real number without its sign.
struct RealText {
    const char* begin;
    const char* end;
    bool complete;  ///< has a digit, and one in the exponent if there is an exponent
};

/// Finds the longest such prefix.
RealText findReal(const char* begin, const char* end);

/// Converts a complete text with the C library, in any C locale. A value that is too large gives infinity.
template <class T>
T convertWithC(const RealText& text);

/// Whether std::from_chars reads numbers of type T. libc++ (seen with 14) has no overload for real numbers.
template <class T, class = void>
struct HasFromChars : std::false_type {};
template <class T>
struct HasFromChars<T, std::void_t<decltype(std::from_chars(nullptr, nullptr, std::declval<T&>()))>> : std::true_type {
};

/// Converts a complete text. from_chars is exact everywhere; some C libraries misread texts next to powers of two.
template <class T>
T convertReal(const RealText& text) {
    if constexpr (HasFromChars<T>::value) {
        T value = 0;
        if (std::from_chars(text.begin, text.end, value).ec == std::errc::result_out_of_range) {
            // from_chars does not say whether the number is too large or too small.
            return convertWithC<T>(text) > 1 ? std::numeric_limits<T>::infinity() : 0;
        }
        return value;
    } else {
        return convertWithC<T>(text);
    }
}

/// Finds the end of a number without a sign and converts it in one pass.
/// \returns false, with nothing changed, where a stream may read more or less of the text than from_chars does ("inf",
///          "1e"), where the value is out of range, and where there is no from_chars
template <class T>
bool readRealInOnePass(T& value, const char*& begin, const char* end) {
    if constexpr (HasFromChars<T>::value) {
        if (begin == end || !(isDigit(*begin) || *begin == '.')) {
            return false;
        }
        const std::from_chars_result result = std::from_chars(begin, end, value);
        if (result.ec != std::errc() || (result.ptr != end && (*result.ptr == 'e' || *result.ptr == 'E'))) {
            return false;
        }
        begin = result.ptr;
        return true;
    } else {
        return false;
    }
}

/// Reads a real number. An incomplete one gives 0, one that is too large the largest finite value.
template <class T>
T readReal(const char*& begin, const char* end) {
    const bool negative = readSign(begin, end);
    T value = 0;
    if (!readRealInOnePass(value, begin, end)) {
        const RealText text = findReal(begin, end);
        begin = text.end;
        if (!text.complete) {
            return 0;
        }
        value = std::min(convertReal<T>(text), std::numeric_limits<T>::max());
    }
    return negative ? -value : value;
}

/// Reads a number that starts at `begin`, as a stream with the classic locale does.
template <class T>
void readClassic(T& target, const char*& begin, const char* end) {
    if constexpr (std::is_floating_point_v<T>) {
        target = readReal<T>(begin, end);
    } else {
        target = readInteger<T>(begin, end);
    }
}

/// Reads numbers as a stream with the global locale at its construction does. Looking at the locale takes longer than reading
/// a number, so one reader serves a whole list.
class NumberReader {
public:
    NumberReader();

    /// Reads the number at the start of `text`. Leaves `target` unchanged if the text is blank.
    template <class T>
    void read(T& target, std::string_view text) const {
        if (way != Way::classic) {
            readWithLocale(target, text);
            return;
        }
        const char* begin = text.data();
        const char* const end = begin + text.size();
        skipBlanks(begin, end);
        if (begin != end) {
            readClassic(target, begin, end);
        }
    }

    /// Whether the locale is the classic one.
    bool classic() const {
        return way == Way::classic;
    }

private:
    enum class Way { classic, stream, localized };

    template <class T>
    void readWithLocale(T& target, std::string_view text) const;

    std::optional<std::locale> locale;
    Way way = Way::classic;
};

}  // namespace Kelp

#endif
