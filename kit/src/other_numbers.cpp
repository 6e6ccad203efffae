#include <kelpkit/CommandLineValues.h>

#include "real_number_reading.h"
#include "whole_number_reading.h"

namespace Kelpkit {

Read<signed char> readValue(const std::string& text, Type<signed char> /*type*/, const Limits<signed char>& limits) {
    return readWhole(text, limits);
}

Read<unsigned char> readValue(const std::string& text, Type<unsigned char> /*type*/,
                              const Limits<unsigned char>& limits) {
    return readWhole(text, limits);
}

Read<short> readValue(const std::string& text, Type<short> /*type*/, const Limits<short>& limits) {
    return readWhole(text, limits);
}

Read<unsigned short> readValue(const std::string& text, Type<unsigned short> /*type*/,
                               const Limits<unsigned short>& limits) {
    return readWhole(text, limits);
}

Read<long> readValue(const std::string& text, Type<long> /*type*/, const Limits<long>& limits) {
    return readWhole(text, limits);
}

Read<long long> readValue(const std::string& text, Type<long long> /*type*/, const Limits<long long>& limits) {
    return readWhole(text, limits);
}

template std::optional<float> realNumber(const std::string& text);

namespace {

std::string inDigits(float number, int precision) {
    std::ostringstream digits;
    digits.imbue(std::locale::classic());
    digits.precision(precision);
    digits << number;
    return digits.str();
}

}  // namespace

std::string inDigits(float number) {
    int precision = std::numeric_limits<float>::digits10;
    while (precision < std::numeric_limits<float>::max_digits10 &&
           classicNumber<float>(inDigits(number, precision)) != number) {
        ++precision;
    }
    return inDigits(number, precision);
}

Read<float> readValue(const std::string& text, Type<float> /*type*/, const Limits<float>& limits) {
    return readReal(text, limits);
}

Read<long double> readValue(const std::string& text, Type<long double> /*type*/, const Limits<long double>& limits) {
    // The library reads nothing wider than a double.
    const Read<double> read = readValue(text, Type<double>{}, detail::convertLimits<double>(limits));
    return read ? Read<long double>::of(read.value()) : Read<long double>::expected(read.expectation());
}

}  // namespace Kelpkit
