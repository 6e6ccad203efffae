#include <kelplib/Kelp.h>

#include "convert/number_reading.h"
#include "util/pieces.h"

namespace Kelp {

namespace {

constexpr char listSeparator = ',';
constexpr char numberSeparator = ':';

/// A blank or unreadable piece gives 0.
template <class T>
void readSet(std::set<T>& target, const std::string& text, char separator) {
    target.clear();
    const NumberReader reader;
    forEachPiece(text, separator, [&](std::string_view piece) {
        T value = 0;
        reader.read(value, piece);
        target.insert(value);
    });
}

/// Every piece is read over the element that stands in its place already, which a blank one leaves.
template <class T>
void readVector(std::vector<T>& target, const std::string& text) {
    std::size_t count = 0;
    forEachPiece(text, numberSeparator, [&count](std::string_view) { ++count; });
    target.resize(count);
    const NumberReader reader;
    auto element = target.begin();
    forEachPiece(text, numberSeparator, [&](std::string_view piece) { reader.read(*element++, piece); });
}

/// Reads a text of exactly as many pieces as there are numbers.
/// \returns false for any other number of pieces
template <class T, std::size_t Count>
bool readExactly(std::array<T, Count>& numbers, const std::string& text) {
    std::array<std::string_view, Count> pieces;
    std::size_t count = 0;
    forEachPiece(text, numberSeparator, [&](std::string_view piece) {
        if (count < Count) {
            pieces[count] = piece;
        }
        ++count;
    });
    if (count != Count) {
        return false;
    }
    const NumberReader reader;
    for (std::size_t i = 0; i < Count; ++i) {
        reader.read(numbers[i], pieces[i]);
    }
    return true;
}

/// The lower number becomes the first. Equal ones, which may still differ (0 and -0), both take the second one's value, so
/// this is not std::minmax.
template <class T>
void readPair(std::tuple<T, T>& target, const std::string& text) {
    std::array<T, 2> numbers{};
    if (readExactly(numbers, text)) {
        const auto [a, b] = numbers;
        target = {a < b ? a : b, a > b ? a : b};
    }
}

}  // namespace

void stringToValue(std::vector<std::string>& target, std::string text) {
    target = split(text, listSeparator);
}

void stringToValue(std::set<std::string>& target, std::string text) {
    target.clear();
    forEachPiece(text, listSeparator, [&target](std::string_view piece) { target.emplace(piece); });
}

void stringToValue(std::set<int>& target, std::string text) {
    readSet(target, text, listSeparator);
}

void stringToValue(std::set<double>& target, std::string text) {
    readSet(target, text, numberSeparator);
}

void stringToValue(std::vector<int>& target, std::string text) {
    readVector(target, text);
}

void stringToValue(std::vector<double>& target, std::string text) {
    readVector(target, text);
}

void stringToValue(std::tuple<unsigned int, unsigned int>& target, std::string text) {
    readPair(target, text);
}

void stringToValue(std::tuple<unsigned int, unsigned int, unsigned int>& target, std::string text) {
    std::array<unsigned int, 3> numbers{};
    if (readExactly(numbers, text)) {
        target = {numbers[0], numbers[1], numbers[2]};
    }
}

void stringToValue(std::tuple<float, float>& target, std::string text) {
    readPair(target, text);
}

void stringToValue(std::tuple<double, double>& target, std::string text) {
    readPair(target, text);
}

}  // namespace Kelp
