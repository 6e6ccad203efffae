#ifndef KELPLIB_CONVERT_NUMBER_READING_H
#define KELPLIB_CONVERT_NUMBER_READING_H

#include <limits>
#include <locale>
#include <string_view>
#include <type_traits>

#include "convert/digits.h"
#include "convert/real_reading.h"

/// Reading one number as the formatted extraction of a stream does, with the same result on every standard library.
namespace Kelp {

/// Skips the blanks of the classic locale.
inline const char* skipBlanks(const char* begin, const char* end) {
    while (begin != end && (*begin == ' ' || (*begin >= '\t' && *begin <= '\r'))) {
        ++begin;
    }
    return begin;
}

/// Reads an optional sign and digits, and moves `begin` behind what it took. What does not fit becomes the nearest limit; a
/// negative number in an unsigned type is negated modulo its range as long as its magnitude fits.
template <class T>
T readInteger(const char*& begin, const char* end) {
    using Limits = std::numeric_limits<T>;
    constexpr auto limit = static_cast<unsigned long long>(Limits::max());
    constexpr auto widest = std::numeric_limits<unsigned long long>::max();
    const bool negative = readSign(begin, end);
    unsigned long long magnitude = 0;
    for (; begin != end && isDigit(*begin); ++begin) {
        const auto digit = static_cast<unsigned long long>(*begin - '0');
        // Only the widest type can lose digits before they are compared with its limit.
        const bool wraps = limit == widest && magnitude > (widest - digit) / 10;
        magnitude = magnitude * 10 + digit;
        if (wraps || magnitude > limit) {
            // The lowest signed number lies beyond the limit too, and comes out as itself.
            return negative && Limits::is_signed ? Limits::lowest() : Limits::max();
        }
    }
    // Wraps modulo the range: what an unsigned type wants, and for a signed one the value itself.
    return static_cast<T>(negative ? 0 - magnitude : magnitude);
}

/// Reads a number that begins at `begin`, as the classic locale does, and moves `begin` behind it.
template <class T>
void readClassic(T& target, const char*& begin, const char* end) {
    if constexpr (std::is_floating_point_v<T>) {
        target = readReal<T>(begin, end);
    } else {
        target = readInteger<T>(begin, end);
    }
}

/// Reads numbers as a stream with the current global locale does, to the same values with every standard library. One object
/// serves many numbers, because asking the locale takes longer than reading one.
class NumberReader {
public:
    NumberReader() : way(locale == std::locale::classic() ? Way::classic : otherWay()) {}

    /// Reads one number from `text` into `target`, which keeps its value when the text is blank.
    template <class T>
    void read(T& target, std::string_view text) const {
        if (way != Way::classic) {
            readOtherwise(target, text);
            return;
        }
        const char* const end = text.data() + text.size();
        const char* begin = skipBlanks(text.data(), end);
        if (begin != end) {
            readClassic(target, begin, end);
        }
    }

    /// Whether the global locale is the classic one.
    bool classic() const {
        return way == Way::classic;
    }

private:
    enum class Way { classic, stream, localized };

    Way otherWay() const;

    template <class T>
    void readOtherwise(T& target, std::string_view text) const;

    std::locale locale;
    Way way;
};

}  // namespace Kelp

#endif
