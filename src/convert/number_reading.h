#ifndef KELPLIB_CONVERT_NUMBER_READING_H
#define KELPLIB_CONVERT_NUMBER_READING_H

#include <limits>
#include <locale>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>

#include "convert/digits.h"
#include "convert/localized_text.h"
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

/// Reads an optional sign and digits. What does not fit becomes the nearest limit; a negative number in an unsigned type
/// is negated modulo its range as long as its magnitude fits.
template <class T>
T readInteger(const char* begin, const char* end) {
    using Limits = std::numeric_limits<T>;
    const bool negative = readSign(begin, end);
    constexpr auto limit = static_cast<unsigned long long>(Limits::max());
    unsigned long long magnitude = 0;
    for (; begin != end && isDigit(*begin); ++begin) {
        const auto digit = static_cast<unsigned long long>(*begin - '0');
        if (magnitude > (limit - digit) / 10) {
            // The lowest signed number lies beyond the limit too, and comes out as itself.
            return negative && Limits::is_signed ? Limits::lowest() : Limits::max();
        }
        magnitude = magnitude * 10 + digit;
    }
    // Wraps modulo the range: what an unsigned type wants, and for a signed one the value itself.
    return static_cast<T>(negative ? 0 - magnitude : magnitude);
}

/// Reads one number as the classic locale does. An empty text leaves the target.
template <class T>
void readClassic(T& target, const char* begin, const char* end) {
    if (begin == end) {
        return;
    }
    if constexpr (std::is_floating_point_v<T>) {
        target = readReal<T>(begin, end);
    } else {
        target = readInteger<T>(begin, end);
    }
}

/// Reads numbers as a stream of today's global locale does. One object serves many numbers, because asking the locale takes
/// longer than reading one.
class NumberReader {
public:
    NumberReader();

    /// Reads one number from `text` into `target`, which keeps its value when the text is blank.
    template <class T>
    void read(T& target, std::string_view text) const {
        if (way == Way::classic) {
            const char* const end = text.data() + text.size();
            readClassic(target, skipBlanks(text.data(), end), end);
        } else if (way == Way::stream) {
            std::stringstream(std::string(text)) >> target;
        } else {
            const std::string number = classicNumber(text, locale, std::is_floating_point_v<T>);
            readClassic(target, number.data(), number.data() + number.size());
        }
    }

private:
    enum class Way { classic, stream, localized };

    std::locale locale;
    Way way;
};

}  // namespace Kelp

#endif
