#include "convert/number_reading.h"

#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>

#include "convert/localized_text.h"

namespace Kelp {

namespace {

/// The decimal point of the current C locale, taken from a number that is printed with it: localeconv() is not thread-safe.
std::string decimalPoint() {
    char half[32];
    const int length = std::snprintf(half, sizeof half, "%.1f", 0.5);
    return {half + 1, static_cast<std::size_t>(length) - 2};
}

/// Cold, so that the compiler calls the stream instead of inlining it.
template <class T>
[[gnu::cold]] void readWithStream(T& target, std::string_view text) {
    std::stringstream stream{std::string(text)};
    stream >> target;
}

}  // namespace

RealText findReal(const char* begin, const char* end) {
    const char* position = begin;
    skipDigits(position, end);
    auto digits = position - begin;
    if (position != end && *position == '.') {
        const char* const fraction = ++position;
        skipDigits(position, end);
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
    const char* const exponent = position;
    skipDigits(position, end);
    return {begin, position, position != exponent};
}

template <class T>
T convertWithC(const RealText& text) {
    std::string number(text.begin, text.end);
    // glibc (seen with 2.36) reads "E" only where the C locale's lower case of it is "e".
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

template float convertWithC<float>(const RealText& text);
template double convertWithC<double>(const RealText& text);

NumberReader::NumberReader() {
    if (hasUsedLocales() && locale.emplace() != std::locale::classic()) {
        way = needsStream(*locale) ? Way::stream : Way::localized;
    }
}

template <class T>
void NumberReader::readWithLocale(T& target, std::string_view text) const {
    if (way == Way::stream) {
        readWithStream(target, text);
        return;
    }
    const std::string number = classicNumber(text, *locale, std::is_floating_point_v<T>);
    if (!number.empty()) {
        const char* begin = number.data();
        readClassic(target, begin, begin + number.size());
    }
}

template void NumberReader::readWithLocale(int& target, std::string_view text) const;
template void NumberReader::readWithLocale(unsigned short& target, std::string_view text) const;
template void NumberReader::readWithLocale(unsigned int& target, std::string_view text) const;
template void NumberReader::readWithLocale(unsigned long long& target, std::string_view text) const;
template void NumberReader::readWithLocale(float& target, std::string_view text) const;
template void NumberReader::readWithLocale(double& target, std::string_view text) const;

}  // namespace Kelp
