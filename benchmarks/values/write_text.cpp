// Numbers to text: kelplib, other libraries, and as the limit to_chars into one buffer.

#include <double-conversion/double-conversion.h>
#include <fmt/compile.h>
#include <fmt/format.h>
#include <kelplib/Kelp.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "../support/measure.h"
#include "../support/numbers.h"

namespace {

constexpr std::size_t maxCount = 1000000;
/// Room for any number and a separator.
constexpr std::size_t roomPerNumber = 26;

using Numbers = std::shared_ptr<LazyNumbers>;
using Pair = std::tuple<double, double>;

void addText(const std::string& name, const Numbers& values, std::string (*write)(const std::vector<double>&)) {
    measure(
        name, values->size(), [values, write] { return write(values->get()); },
        [values](const std::string& text) { return holds(text, values->get()); });
}

std::string writeWithKelplib(const std::vector<double>& values) {
    return std::to_string(values);
}

/// Writes each number at the end of one text that has room for all. `write` writes one number and returns its end.
template <class Write>
std::string writeEach(const std::vector<double>& values, Write write) {
    std::string text(values.size() * roomPerNumber, ' ');
    char* position = text.data();
    for (const double value : values) {
        position = write(position, value);
        *position++ = ',';
        *position++ = ' ';
    }
    text.resize(static_cast<std::size_t>(position - text.data()) - 2);
    return text;
}

std::string writeWithFmt(const std::vector<double>& values) {
    return writeEach(values, [](char* to, double value) { return fmt::format_to(to, FMT_COMPILE("{}"), value); });
}

std::string writeWithStream(const std::vector<double>& values) {
    std::ostringstream stream;
    stream.precision(17);
    const char* separator = "";
    for (const double value : values) {
        stream << separator << value;
        separator = ", ";
    }
    return stream.str();
}

std::string writeWithPrintf(const std::vector<double>& values) {
    return writeEach(values,
                     [](char* to, double value) { return to + std::snprintf(to, roomPerNumber, "%.17g", value); });
}

std::string writeWithDoubleConversion(const std::vector<double>& values) {
    const auto& converter = double_conversion::DoubleToStringConverter::EcmaScriptConverter();
    return writeEach(values, [&converter](char* to, double value) {
        double_conversion::StringBuilder builder(to, static_cast<int>(roomPerNumber));
        converter.ToShortest(value, &builder);
        return to + builder.position();
    });
}

/// The limit: writes into an existing buffer. Returns the end of the text.
char* writeWithToChars(const std::vector<double>& values, std::string& buffer) {
    char* position = buffer.data();
    char* const end = position + buffer.size();
    for (const double value : values) {
        position = std::to_chars(position, end, value).ptr;
        *position++ = ',';
        *position++ = ' ';
    }
    return position - 2;
}

char* writePairsWithToChars(const std::vector<Pair>& pairs, std::string& buffer) {
    char* position = buffer.data();
    char* const end = position + buffer.size();
    for (const auto& [first, second] : pairs) {
        position = std::to_chars(position, end, first).ptr;
        *position++ = ':';
        position = std::to_chars(position, end, second).ptr;
    }
    return position;
}

void addFloor(const std::string& name, const Numbers& values) {
    const auto buffer = std::make_shared<std::string>(values->size() * roomPerNumber, ' ');
    measure(
        name, values->size(), [values, buffer] { return writeWithToChars(values->get(), *buffer); },
        [values, buffer](const char* end) {
            return holds(buffer->substr(0, static_cast<std::size_t>(end - buffer->data())), values->get());
        });
}

void addKind(const std::string& kind, Kind drawn) {
    const auto values = std::make_shared<LazyNumbers>(drawn, maxCount);
    addFloor("text/" + kind + "/to_chars", values);
    addText("text/" + kind + "/kelplib", values, writeWithKelplib);
    addText("text/" + kind + "/fmt", values, writeWithFmt);
    addText("text/" + kind + "/double-conversion", values, writeWithDoubleConversion);
    addText("text/" + kind + "/string stream", values, writeWithStream);
    addText("text/" + kind + "/printf", values, writeWithPrintf);
}

std::string writePairWithKelplib(const Pair& pair) {
    return std::to_string(pair);
}

std::string writePairWithFmt(const Pair& pair) {
    char text[2 * roomPerNumber];
    return {text, fmt::format_to(text, FMT_COMPILE("{}:{}"), std::get<0>(pair), std::get<1>(pair))};
}

bool allHold(const std::vector<Pair>& pairs, std::string (*write)(const Pair&)) {
    return std::all_of(pairs.begin(), pairs.end(), [write](const Pair& pair) {
        return holds(write(pair), {std::get<0>(pair), std::get<1>(pair)});
    });
}

void addPairs(const std::string& library, const std::vector<Pair>& pairs, std::string (*write)(const Pair&)) {
    measure(
        "text/pairs/" + library, pairs.size(),
        [&pairs, write] {
            std::size_t length = 0;
            for (const Pair& pair : pairs) {
                length += write(pair).size();
            }
            return length;
        },
        [&pairs, write](std::size_t /*length*/) { return allHold(pairs, write); });
}

/// Pairs of numbers with three decimals.
std::vector<Pair> drawPairs() {
    const std::vector<double> drawn = numbers(Kind::decimals, 2 * maxCount);
    std::vector<Pair> pairs;
    for (std::size_t i = 0; i < maxCount; ++i) {
        pairs.emplace_back(drawn[2 * i], drawn[2 * i + 1]);
    }
    return pairs;
}

void addAllPairs(const std::vector<Pair>& pairs) {
    const auto buffer = std::make_shared<std::string>(pairs.size() * 2 * roomPerNumber, ' ');
    measure(
        "text/pairs/to_chars", pairs.size(), [&pairs, buffer] { return writePairsWithToChars(pairs, *buffer); },
        [buffer](const char* end) { return end > buffer->data(); });
    addPairs("kelplib", pairs, writePairWithKelplib);
    addPairs("fmt", pairs, writePairWithFmt);
}

}  // namespace

int main(int argc, char** argv) {
    addKind("17 digits", Kind::full);
    addKind("3 decimals", Kind::decimals);
    addKind("whole", Kind::whole);
    const std::vector<Pair> pairs = drawPairs();
    addAllPairs(pairs);
    for (const std::size_t count : {1000U, 10000U, 100000U, 1000000U}) {
        addText("growth/text 17 digits/" + std::to_string(count) + "/kelplib",
                std::make_shared<LazyNumbers>(Kind::full, count), writeWithKelplib);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
