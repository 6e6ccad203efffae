// Numbers under a global locale with punctuation of its own: a line with the decimal point, the separator and the sizes of
// the groups, then the text. Compared with a string stream.
#include <kelplib/Kelp.h>

#include "check.h"
#include "input.h"
#include "number_model.h"
#include "scoped_locale.h"
#include "target.h"

namespace {

class Punctuation : public std::numpunct<char> {
public:
    explicit Punctuation(std::string line) : marks(std::move(line)) {
        marks.resize(std::max<std::size_t>(marks.size(), 2), ',');
    }

protected:
    char do_decimal_point() const override {
        return marks[0];
    }
    char do_thousands_sep() const override {
        return marks[1];
    }
    std::string do_grouping() const override {
        return marks.substr(2);
    }

private:
    std::string marks;
};

template <class T>
void expectNumber(const char* type, T old, const std::string& text) {
    T actual = old;
    Kelp::stringToValue(actual, text);
    const T expected = number_model::extractedOver(old, text);
    // Some streams lose count of a group's digits as soon as a number does not fit any more, and then give 0.
    const bool limit = actual == std::numeric_limits<T>::max() || actual == std::numeric_limits<T>::lowest();
    if (!std::is_integral_v<T> || !limit || expected != 0) {
        fuzz::expectSame(type, actual, expected);
    }
}

/// Whether the marks are such that reading has a meaning: no digit, sign, letter or blank among them.
bool isUsual(const std::string& marks) {
    return marks.size() >= 2 && marks.find_first_not_of(".,';_:") >= 2 && marks[0] != marks[1];
}

}  // namespace

void fuzz::localized(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const std::string marks = input.line();
    const std::string text = input.rest();
    // Streams of other libraries judge separators at odd places otherwise.
    if (!isUsual(marks) || !number_model::streamsStopWhereTheNumberStops()) {
        return;
    }
    const ScopedGlobalLocale scope(new Punctuation(marks));
    expectNumber<int>("int", 7, text);
    expectNumber<unsigned short>("unsigned short", 7, text);
    expectNumber<unsigned int>("unsigned int", 7, text);
    expectNumber<unsigned long long>("unsigned long long", 7, text);
    if (number_model::exactCLibrary) {
        expectNumber<double>("double", 7, text);
        expectNumber<float>("float", 7, text);
    }
}
