// Text to a list of numbers: kelplib, other libraries, and as the limit from_chars into a vector. Under the classic global
// locale and under one with another decimal point and with grouping.

#include <double-conversion/double-conversion.h>
#include <kelplib/Kelp.h>

#include <charconv>
#include <cstdlib>
#include <sstream>

#include "../support/measure.h"
#include "../support/numbers.h"

namespace {

constexpr std::size_t maxCount = 1000000;

/// A list as text and as numbers.
template <class T>
struct List {
    std::vector<T> values;
    std::string text;
};

/// A list that is generated when it is first used: not every run measures all of them.
template <class T>
class LazyList {
public:
    LazyList(Kind drawnKind, std::size_t size, const std::locale& writing)
        : locale(writing), count(size), kind(drawnKind) {}

    const List<T>& get() {
        if (list.values.empty()) {
            const std::vector<double> drawn = numbers(kind, count);
            list.values.assign(drawn.begin(), drawn.end());
            list.text = joined(textsOf(drawn, locale));
        }
        return list;
    }

    const std::locale locale;
    const std::size_t count;

private:
    Kind kind;
    List<T> list;
};

template <class T>
std::vector<T> readWithKelplib(std::string text, std::size_t /*count*/) {
    std::vector<T> values;
    Kelp::stringToValue(values, std::move(text));
    return values;
}

/// The readers take the text as kelplib does, by value, because it consumes it; the copy is made before the measurement.
/// Reads a list whose number of values is known. `read` reads one value at its first argument and returns its end.
template <class T, class Read>
std::vector<T> readEach(const std::string& text, std::size_t count, Read read) {
    std::vector<T> values(count);
    const char* position = text.data();
    const char* const end = position + text.size();
    for (T& value : values) {
        position = read(position, end, value) + 1;
    }
    return values;
}

template <class T>
std::vector<T> readWithFromChars(std::string text, std::size_t count) {
    return readEach<T>(text, count, [](const char* begin, const char* end, T& value) {
        return std::from_chars(begin, end, value).ptr;
    });
}

std::vector<int> readIntsWithC(std::string text, std::size_t count) {
    return readEach<int>(text, count, [](const char* begin, const char* /*end*/, int& value) {
        char* stop = nullptr;
        value = static_cast<int>(std::strtol(begin, &stop, 10));
        return stop;
    });
}

std::vector<double> readDoublesWithC(std::string text, std::size_t count) {
    return readEach<double>(text, count, [](const char* begin, const char* /*end*/, double& value) {
        char* stop = nullptr;
        value = std::strtod(begin, &stop);
        return stop;
    });
}

std::vector<double> readWithDoubleConversion(std::string text, std::size_t count) {
    using double_conversion::StringToDoubleConverter;
    static const StringToDoubleConverter converter(StringToDoubleConverter::ALLOW_TRAILING_JUNK, 0, 0, nullptr,
                                                   nullptr);
    return readEach<double>(text, count, [](const char* begin, const char* end, double& value) {
        int used = 0;
        value = converter.StringToDouble(begin, static_cast<int>(end - begin), &used);
        return begin + used;
    });
}

template <class T>
std::vector<T> readWithOneStream(std::string text, std::size_t count) {
    std::vector<T> values;
    values.reserve(count);
    std::istringstream stream(text);
    char colon = 0;
    for (T value = 0; stream >> value; stream >> colon) {
        values.push_back(value);
    }
    return values;
}

/// The limit under another locale: a new stream with the global locale for each value.
template <class T>
std::vector<T> readWithFreshStreams(std::string text, std::size_t /*count*/) {
    std::vector<T> values;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find(':', begin), text.size());
        values.emplace_back();
        std::istringstream(text.substr(begin, end - begin)) >> values.back();
        begin = end + 1;
    }
    return values;
}

template <class T>
void add(const std::string& name, const std::shared_ptr<LazyList<T>>& list,
         std::vector<T> (*read)(std::string, std::size_t)) {
    measurePrepared(
        name, list->count, [list] { return list->get().text; },
        [list, read](std::string text) {
            const GlobalLocale locale(list->locale);
            return read(std::move(text), list->count);
        },
        [list](const std::vector<T>& values) { return values == list->get().values; });
}

template <class T>
void addKind(const std::string& kind, Kind drawn) {
    const auto list = std::make_shared<LazyList<T>>(drawn, maxCount, std::locale::classic());
    add<T>("list/" + kind + "/from_chars", list, readWithFromChars<T>);
    add<T>("list/" + kind + "/kelplib", list, readWithKelplib<T>);
    add<T>("list/" + kind + "/string stream", list, readWithOneStream<T>);
    if constexpr (std::is_integral_v<T>) {
        add<T>("list/" + kind + "/strtol, strtod", list, readIntsWithC);
    } else {
        add<T>("list/" + kind + "/strtol, strtod", list, readDoublesWithC);
        add<T>("list/" + kind + "/double-conversion", list, readWithDoubleConversion);
    }
    const auto foreign = std::make_shared<LazyList<T>>(drawn, maxCount, commaLocale());
    add<T>("locale/" + kind + "/fresh string streams", foreign, readWithFreshStreams<T>);
    add<T>("locale/" + kind + "/kelplib", foreign, readWithKelplib<T>);
    for (const std::size_t count : {1000U, 10000U, 100000U, 1000000U}) {
        add<T>("growth/list " + kind + "/" + std::to_string(count) + "/kelplib",
               std::make_shared<LazyList<T>>(drawn, count, std::locale::classic()), readWithKelplib<T>);
    }
}

}  // namespace

int main(int argc, char** argv) {
    addKind<int>("int", Kind::whole);
    addKind<double>("short", Kind::short_);
    addKind<double>("17 digits", Kind::full);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
