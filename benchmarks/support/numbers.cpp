#include "numbers.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <sstream>

namespace {

double numberOf(Kind kind, std::mt19937& random) {
    switch (kind) {
        case Kind::whole:
            return static_cast<double>(random() % 1000000);
        case Kind::short_:
            return static_cast<double>(random() % 10000) / 10;
        case Kind::decimals:
            return static_cast<double>(random() % 10000000) / 1000;
        case Kind::full:
            break;
    }
    return std::ldexp(static_cast<double>(random()) * 4294967296.0 + static_cast<double>(random()), -54);
}

bool has17Digits(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.16g", value);
    return std::strtod(text, nullptr) != value;
}

class CommaPunctuation : public std::numpunct<char> {
protected:
    char do_decimal_point() const override {
        return ',';
    }
    char do_thousands_sep() const override {
        return '.';
    }
    std::string do_grouping() const override {
        return "\3";
    }
};

}  // namespace

std::vector<double> numbers(Kind kind, std::size_t count) {
    std::mt19937 random(static_cast<unsigned>(kind) + 1);
    std::vector<double> values;
    while (values.size() < count) {
        const double value = numberOf(kind, random);
        if (kind != Kind::full || has17Digits(value)) {
            values.push_back(value);
        }
    }
    return values;
}

LazyNumbers::LazyNumbers(Kind kind, std::size_t count) : drawnKind(kind), count(count) {}

std::size_t LazyNumbers::size() const {
    return count;
}

const std::vector<double>& LazyNumbers::get() {
    if (values.empty()) {
        values = numbers(drawnKind, count);
    }
    return values;
}

bool holds(const std::string& text, const std::vector<double>& values) {
    const char* position = text.c_str();
    for (const double value : values) {
        char* end = nullptr;
        if (std::strtod(position, &end) != value || end == position) {
            return false;
        }
        position = end + (*end == ',' ? 2 : *end == ':' ? 1 : 0);
    }
    return *position == '\0';
}

std::vector<std::string> textsOf(const std::vector<double>& values, const std::locale& locale) {
    std::vector<std::string> texts;
    for (const double value : values) {
        std::ostringstream stream;
        stream.imbue(locale);
        stream.precision(17);
        const bool isShort = std::round(value * 10) / 10 == value;
        if (value == std::floor(value)) {
            stream << static_cast<long>(value);
        } else {
            stream.precision(isShort ? 6 : 17);
            stream << value;
        }
        texts.push_back(stream.str());
    }
    return texts;
}

std::string joined(const std::vector<std::string>& texts) {
    std::string whole;
    for (const std::string& text : texts) {
        whole += whole.empty() ? "" : ":";
        whole += text;
    }
    return whole;
}

std::locale commaLocale() {
    return {std::locale::classic(), new CommaPunctuation};
}

GlobalLocale::GlobalLocale(const std::locale& locale) : before(std::locale::global(locale)) {}

GlobalLocale::~GlobalLocale() {
    std::locale::global(before);
}
