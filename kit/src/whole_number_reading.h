#ifndef KELPKIT_WHOLE_NUMBER_READING_H
#define KELPKIT_WHOLE_NUMBER_READING_H

#include "numbers.h"

/// \file
/// Whole numbers of any type. The types are read in several files, so that a tool contains those that it is likely to use.

namespace Kelpkit {

/// Returns whether the text is a whole number of a type whose largest value is `largest`.
bool isWholeNumber(const std::string& text, bool isSigned, unsigned long long largest);

/// Converts a whole number that fits. The library reads no signed type wider than int: reads the magnitude.
long long convertedMagnitude(const std::string& text);

template <class T>
T convertedTo(const std::string& text) {
    if constexpr (std::is_unsigned_v<T>) {
        using Library = std::conditional_t<(sizeof(T) <= sizeof(unsigned short)), unsigned short,
                                           std::conditional_t<std::is_same_v<T, unsigned int>, T, unsigned long long>>;
        return static_cast<T>(libraryValue<Library>(text));
    } else if constexpr (sizeof(T) < sizeof(int) || std::is_same_v<T, int>) {
        return static_cast<T>(libraryValue<int>(text));
    } else {
        return static_cast<T>(convertedMagnitude(text));
    }
}

template <class T>
std::optional<T> wholeNumber(const std::string& text) {
    constexpr auto largest = static_cast<unsigned long long>(std::numeric_limits<T>::max());
    return isWholeNumber(text, std::is_signed_v<T>, largest) ? std::optional<T>(convertedTo<T>(text)) : std::nullopt;
}

template <class T>
Read<T> readWhole(const std::string& text, const Limits<T>& limits) {
    const std::optional<T> number = numberWithin(text, limits);
    return number ? Read<T>::of(*number) : Read<T>::expected("a " + wordsFor("", limits, {}));
}

}  // namespace Kelpkit

#endif
