#ifndef KELPKIT_REAL_NUMBER_READING_H
#define KELPKIT_REAL_NUMBER_READING_H

#include <cmath>
#include <locale>
#include <sstream>

#include "numbers.h"

/// \file
/// Real numbers of any type; see whole_number_reading.h.

namespace Kelpkit {

/// Replaces the decimal point of the global locale by a point.
std::string withPoint(std::string text);

/// Reads a number with a point; none if it does not fit.
template <class T>
std::optional<T> classicNumber(const std::string& text) {
    std::istringstream stream(text);
    stream.imbue(std::locale::classic());
    T number = 0;
    return stream >> number ? std::optional<T>(number) : std::nullopt;
}

template <class T>
std::optional<T> realNumber(const std::string& text) {
    if (!hasRealForm(text)) {
        return std::nullopt;
    }
    const T number = libraryValue<T>(text);
    // The library makes a number that does not fit the largest of the type.
    if (std::abs(number) == std::numeric_limits<T>::max() && !classicNumber<T>(withPoint(text))) {
        return std::nullopt;
    }
    return number;
}

template <class T>
Read<T> readReal(const std::string& text, const Limits<T>& limits) {
    const std::optional<T> number = numberWithin(text, limits);
    return number ? Read<T>::of(*number) : Read<T>::expected("a " + wordsFor("", limits, {text}));
}

}  // namespace Kelpkit

#endif
