#ifndef KELPLIB_TESTS_NUMBER_MODEL_H
#define KELPLIB_TESTS_NUMBER_MODEL_H

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <sstream>
#include <string>
#include <type_traits>

/// Models of reading one number.
namespace number_model {

/// Returns what a target that holds `old` holds after a string stream with the global locale reads `text` into it.
template <class T>
T extractedOver(T old, const std::string& text) {
    std::stringstream(text) >> old;
    return old;
}

/// Returns whether the standard library's streams stop at the first character that cannot continue a number, as the
/// standard's conversion table requires. libc++ 14 collects all of "12abc" for a real number and then gives 0.
inline bool streamsStopWhereTheNumberStops() {
    return extractedOver(99.0, "12abc") == 12.0;
}

/// Whether strtod and strtof give the nearest number for every text. On Windows, where paths are wide, they do not.
inline constexpr bool exactCLibrary = std::is_same_v<std::filesystem::path::value_type, char>;

/// Returns the longest prefix of `text` that has the form of a real number, without the blanks before it. Returns "" if it
/// has no digits, and "0" if it has an exponent without digits.
inline std::string realPart(const std::string& text) {
    std::size_t i = 0;
    std::string part;
    const auto here = [&] { return i < text.size() ? text[i] : '\0'; };
    const auto takeDigits = [&] {
        std::size_t count = 0;
        for (; here() >= '0' && here() <= '9'; ++i, ++count) {
            part += here();
        }
        return count;
    };
    const auto takeOneOf = [&](char first, char second) {
        const bool there = i < text.size() && (here() == first || here() == second);
        if (there) {
            part += text[i++];
        }
        return there;
    };
    while (i < text.size() && std::isspace(static_cast<unsigned char>(here())) != 0) {
        ++i;
    }
    takeOneOf('+', '-');
    std::size_t digits = takeDigits();
    if (takeOneOf('.', '.')) {
        digits += takeDigits();
    }
    if (digits == 0) {
        return "";
    }
    if (takeOneOf('e', 'E')) {
        takeOneOf('+', '-');
        return takeDigits() == 0 ? "0" : part;
    }
    return part;
}

/// Reads a real number under the classic locale: finds its end by its form and converts it with the C library.
template <class T>
T realOver(T old, const std::string& text) {
    if (text.find_first_not_of(" \t\n\v\f\r") == std::string::npos) {
        return old;
    }
    const std::string part = realPart(text);
    T value = 0;
    if constexpr (std::is_same_v<T, float>) {
        value = std::strtof(part.c_str(), nullptr);
    } else {
        value = std::strtod(part.c_str(), nullptr);
    }
    return std::clamp(value, std::numeric_limits<T>::lowest(), std::numeric_limits<T>::max());
}

/// Reads a number under the classic locale. For real numbers this is a model only if exactCLibrary is true.
template <class T>
T numberOver(T old, const std::string& text) {
    if constexpr (std::is_floating_point_v<T>) {
        return realOver(old, text);
    } else {
        return extractedOver(old, text);
    }
}

}  // namespace number_model

#endif
