// Calls the string helpers. Input: eight bytes of an index, two of a width, a delimiter, a line of delimiters, a line with
// another text, then the text.
#include <kelplib/Kelp.h>

#include <cctype>

#include "check.h"
#include "input.h"
#include "pieces_of.h"
#include "target.h"

namespace {

using fuzz::expectSame;
using Strings = std::vector<std::string>;

std::string lowered(const std::string& text) {
    std::string result;
    for (const char c : text) {
        result += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return result;
}

std::string withExtension(const std::string& name, const std::string& extension) {
    Strings parts = piecesOf(name, '.');
    std::string result;
    for (std::size_t i = 0; i + 1 < parts.size(); ++i) {
        result += parts[i] + ".";
    }
    return result + extension;
}

/// From 15 digits on, one zero fewer is allowed.
void compareFragmentName(unsigned long long index, unsigned int width) {
    const std::string digits = std::to_string(index);
    const std::size_t zeros = width + 1 > digits.size() ? width + 1 - digits.size() : 0;
    const std::string actual = Kelp::createFragmentName(index, "part_", width);
    const bool oneLess = digits.size() >= 15 && zeros > 0 && actual.size() < 5 + zeros + digits.size();
    expectSame("createFragmentName", actual, "part_" + std::string(zeros - (oneLess ? 1 : 0), '0') + digits);
}

void compareCutting(const std::string& text, char delimiter, const std::string& delimiters) {
    const Strings pieces = piecesOf(text, delimiter);
    expectSame("split", Kelp::split(text, delimiter), pieces);
    expectSame("getFirstToken", Kelp::getFirstToken(text, delimiter), pieces.empty() ? "" : pieces[0]);
    expectSame("Tokenize", Kelp::Tokenize(text, delimiters), tokensOf(text, delimiters));
}

void compareTexts(const std::string& text, const std::string& other) {
    expectSame("toLower", Kelp::toLower(text), lowered(text));
    expectSame("replaceToFileExtension", Kelp::replaceToFileExtension(text, other), withExtension(text, other));
    expectSame("replaceToQ6Extension", Kelp::replaceToQ6Extension(text), withExtension(text, "q6"));
    expectSame("ci_less", ci_less()(text, other), lowered(text) < lowered(other));
    expectSame("ci_less turned", ci_less()(other, text), lowered(other) < lowered(text));
    expectSame("option", std::to_string(Kelp::Option(text, other, text, true)), text + ", " + other + ":\t" + text);
    const int code = static_cast<signed char>(other.size()) - 5;
    expectSame("getColoredString", getColoredString(text, code),
               "\x1b[" + std::to_string(code) + "m" + text + "\x1b[0m");
}

}  // namespace

void fuzz::strings(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const auto index = input.number<unsigned long long>();
    const auto width = input.number<unsigned short>();
    const char delimiter = input.number<char>();
    const std::string delimiters = input.line();
    const std::string other = input.line();
    const std::string text = input.rest();
    compareFragmentName(index, width % 300U);
    compareCutting(text, delimiter, delimiters);
    compareTexts(text, other);
}
