// Text to one number: kelplib, other libraries, and as the limit from_chars.

#include <double-conversion/double-conversion.h>
#include <kelplib/Kelp.h>

#include <charconv>
#include <cstdlib>
#include <sstream>

#include "../support/measure.h"
#include "../support/numbers.h"

namespace {

constexpr std::size_t count = 1000;

/// Texts and the sum of their numbers, added in order.
struct Texts {
    explicit Texts(Kind kind) : values(numbers(kind, count)), texts(textsOf(values, std::locale::classic())) {
        for (const double value : values) {
            sum += value;
        }
    }

    std::vector<double> values;
    std::vector<std::string> texts;
    double sum = 0;
};

template <class T>
T readWithKelplib(const std::string& text) {
    T value = 0;
    Kelp::stringToValue(value, text);
    return value;
}

template <class T>
T readWithFromChars(const std::string& text) {
    T value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

template <class T>
T readWithStream(const std::string& text) {
    T value = 0;
    std::istringstream(text) >> value;
    return value;
}

int readWithStrtol(const std::string& text) {
    return static_cast<int>(std::strtol(text.c_str(), nullptr, 10));
}

double readWithStrtod(const std::string& text) {
    return std::strtod(text.c_str(), nullptr);
}

double readWithDoubleConversion(const std::string& text) {
    static const double_conversion::StringToDoubleConverter converter(
        double_conversion::StringToDoubleConverter::NO_FLAGS, 0, 0, nullptr, nullptr);
    int used = 0;
    return converter.StringToDouble(text.data(), static_cast<int>(text.size()), &used);
}

template <class Read>
void add(const std::string& name, const Texts& source, Read read) {
    measure(
        "read/" + name, count,
        [&source, read] {
            double sum = 0;
            for (const std::string& text : source.texts) {
                sum += static_cast<double>(read(text));
            }
            return sum;
        },
        [&source](double sum) { return sum == source.sum; });
}

template <class T>
void addCommon(const std::string& kind, const Texts& source) {
    add(kind + "/from_chars", source, readWithFromChars<T>);
    add(kind + "/kelplib", source, readWithKelplib<T>);
    add(kind + "/string stream", source, readWithStream<T>);
}

}  // namespace

int main(int argc, char** argv) {
    const Texts whole(Kind::whole);
    addCommon<int>("int", whole);
    add("int/strtol", whole, readWithStrtol);
    const Texts shortNumbers(Kind::short_);
    const Texts full(Kind::full);
    addCommon<double>("short", shortNumbers);
    addCommon<double>("17 digits", full);
    add("short/strtod", shortNumbers, readWithStrtod);
    add("17 digits/strtod", full, readWithStrtod);
    add("short/double-conversion", shortNumbers, readWithDoubleConversion);
    add("17 digits/double-conversion", full, readWithDoubleConversion);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
