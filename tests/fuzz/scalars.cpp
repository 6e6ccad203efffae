// Reads the whole input as the text of every scalar type, over several old values.
#include <kelplib/Kelp.h>

#include <optional>

#include "check.h"
#include "input.h"
#include "number_model.h"
#include "pieces_of.h"
#include "target.h"
#include "utf16_model.h"

namespace {

using fuzz::expectSame;

template <class T>
void expectNumber(const char* type, T old, const std::string& text) {
    T actual = old;
    Kelp::stringToValue(actual, text);
    if (std::is_integral_v<T> || (number_model::exactCLibrary && number_model::streamsStopWhereTheNumberStops())) {
        expectSame(type, actual, number_model::extractedOver(old, text));
    }
    if (std::is_integral_v<T> || number_model::exactCLibrary) {
        expectSame(type, actual, number_model::numberOver(old, text));
    }
}

void expectTexts(const std::string& text) {
    std::string copy = "before";
    Kelp::stringToValue(copy, text);
    expectSame("string", copy, text);
    bool on = false;
    Kelp::stringToValue(on, text);
    expectSame("bool", on, true);
    char first = 'b';
    Kelp::stringToValue(first, text);
    expectSame("char", first, text.empty() ? ' ' : text[0]);
}

void expectStringDouble(const std::string& text) {
    const auto pieces = piecesOf(text, ':');
    Kelp::StringDouble actual{"before", 2.5};
    Kelp::stringToValue(actual, text);
    expectSame("label of StringDouble", actual.label, pieces.size() == 2 ? pieces[0] : "before");
    if (number_model::exactCLibrary) {
        expectSame("value of StringDouble", actual.value,
                   pieces.size() == 2 ? number_model::numberOver(2.5, pieces[1]) : 2.5);
    }
}

void expectPath(const std::string& text) {
    std::filesystem::path actual = "before";
    std::string thrown;
    try {
        Kelp::stringToValue(actual, text);
    } catch (const std::filesystem::filesystem_error& error) {
        if (error.code() != std::errc::illegal_byte_sequence) {
            fuzz::fail("path throws " + error.code().message());
        }
        thrown = "thrown";
    }
    const auto expected = utf16_model::nativePath(text);
    expectSame("path", thrown, std::string(expected ? "" : "thrown"));
    if (actual.native() != expected.value_or(std::filesystem::path("before").native())) {
        fuzz::fail("path of " + fuzz::described(text));
    }
}

}  // namespace

void fuzz::scalars(const std::uint8_t* data, std::size_t size) {
    const std::string text = Input(data, size).rest();
    for (const int old : {0, 7}) {
        expectNumber<int>("int", -old, text);
        expectNumber<unsigned short>("unsigned short", static_cast<unsigned short>(old), text);
        expectNumber<unsigned int>("unsigned int", static_cast<unsigned int>(old), text);
        expectNumber<unsigned long long>("unsigned long long", static_cast<unsigned long long>(old), text);
        expectNumber<double>("double", -old, text);
        expectNumber<float>("float", static_cast<float>(old), text);
    }
    expectTexts(text);
    expectStringDouble(text);
    expectPath(text);
}
