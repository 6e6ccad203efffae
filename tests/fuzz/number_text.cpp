// Converts doubles to text. Input: the letter "t" and a decimal text per line, or another byte and the bytes of numbers.
#include <kelplib/Kelp.h>

#include <cmath>

#include "bit_pattern.h"
#include "check.h"
#include "input.h"
#include "number_text_model.h"
#include "target.h"

namespace {

using fuzz::expectSame;
namespace model = number_text_model;

std::vector<double> numbersOf(fuzz::Input input) {
    std::vector<double> numbers;
    const bool asTexts = input.number<char>() == 't';
    while (!input.isEmpty()) {
        numbers.push_back(asTexts ? model::read(input.line()) : input.number<double>());
    }
    return numbers;
}

std::string specialText(double number) {
    return std::string(std::signbit(number) ? "-" : "") + (std::isnan(number) ? "nan" : "inf");
}

/// Checks the text of a number and returns it.
std::string checkedText(double number) {
    std::string text = std::to_string(std::vector<double>{number});
    if (!std::isfinite(number)) {
        expectSame("text", text, specialText(number));
        return text;
    }
    expectSame("text read back", bitsOf(model::read(text)), bitsOf(number));
    const std::string expected = model::expectedText(number);
    int exponent = 0;
    if (std::fabs(std::frexp(number, &exponent)) == 0.5) {
        // Below a power of two doubles are closer together, so a text may be shorter than the correctly rounded one and
        // still read back.
        if (text.size() > expected.size()) {
            fuzz::fail(text + " is longer than " + expected);
        }
    } else {
        expectSame("text", text, expected);
    }
    return text;
}

}  // namespace

void fuzz::number_text(const std::uint8_t* data, std::size_t size) {
    const std::vector<double> numbers = numbersOf(Input(data, size));
    std::string joined;
    std::vector<std::string> texts;
    for (const double number : numbers) {
        texts.push_back(checkedText(number));
        joined += (joined.empty() ? "" : ", ") + texts.back();
        expectSame("pair", std::to_string(std::tuple<double, double>{number, numbers[0]}),
                   texts.back() + ":" + texts[0]);
        expectSame("StringDouble", std::to_string(Kelp::StringDouble{"a,", number}), "a,, " + texts.back());
    }
    expectSame("numbers", std::to_string(numbers), joined);
    expectSame("texts", std::to_string(texts), joined);
    expectSame("text", std::to_string(joined), joined);
}
