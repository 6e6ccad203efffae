#ifndef KELPKIT_NUMBERS_H
#define KELPKIT_NUMBERS_H

#include <kelpkit/Values.h>

#include <algorithm>
#include <string>

/// \file
/// Whole texts to numbers, and the words for the numbers that are accepted.

namespace Kelpkit {

/// Returns the number that is the whole text; none for any other text and for a number that does not fit. Defined for every
/// number type of kelpkit/Values.h.
template <class T>
std::optional<T> wholeNumber(const std::string& text);
template <class T>
std::optional<T> realNumber(const std::string& text);

template <class T>
std::optional<T> number(const std::string& text) {
    if constexpr (std::is_integral_v<T>) {
        return wholeNumber<T>(text);
    } else {
        return realNumber<T>(text);
    }
}

template <class T>
bool isWithin(T number, const Limits<T>& limits) {
    return (!limits.lowest || *limits.lowest <= number) && (!limits.highest || number <= *limits.highest);
}

template <class T>
std::optional<T> numberWithin(const std::string& text, const Limits<T>& limits) {
    const std::optional<T> result = number<T>(text);
    return result && isWithin(*result, limits) ? result : std::nullopt;
}

/// Returns whether the text is a real number of any size.
bool hasRealForm(const std::string& text);

/// Returns the library's value of a text that has been checked.
template <class T>
T libraryValue(const std::string& text) {
    T value{};
    Kelp::stringToValue(value, text);
    return value;
}

/// Returns the number as a user writes it.
std::string inDigits(float number);
std::string inDigits(double number);

/// Returns "whole numbers from 1 to 10".
std::string wholeNumbersFromTo(const std::string& suffix, long long lowest, long long highest);
std::string wholeNumbersFromTo(const std::string& suffix, unsigned long long lowest, unsigned long long highest);

/// Returns the noun and the limits, as in "whole number from 1 to 10" and "numbers of at least 0".
/// \param refused  the texts; names both limits if a number among them does not fit, for which "not a number" would be wrong
template <class T>
std::string wordsFor(const std::string& suffix, const Limits<T>& limits, const std::vector<std::string>& refused) {
    using Digits = std::conditional_t<std::is_floating_point_v<T>, T,
                                      std::conditional_t<std::is_signed_v<T>, long long, unsigned long long>>;
    const auto lowest = static_cast<Digits>(limits.lowest.value_or(std::numeric_limits<T>::lowest()));
    const auto highest = static_cast<Digits>(limits.highest.value_or(std::numeric_limits<T>::max()));
    if constexpr (std::is_integral_v<T>) {
        return wholeNumbersFromTo(suffix, lowest, highest);
    } else {
        const bool hasEnd = limits.highest || std::any_of(refused.begin(), refused.end(), [](const std::string& text) {
                                return hasRealForm(text) && !realNumber<T>(text);
                            });
        std::string words = "number" + suffix;
        if (hasEnd || limits.lowest) {
            words += (hasEnd ? " from " : " of at least ") + inDigits(lowest);
        }
        return hasEnd ? words + " to " + inDigits(highest) : words;
    }
}

}  // namespace Kelpkit

#endif
