#include <kelplib/Kelp.h>

#include "convert/number_pieces.h"
#include "util/pieces.h"

namespace Kelp {

namespace {

constexpr char listSeparator = ',';
constexpr char numberSeparator = ':';

/// Inserts 0 for a blank or unreadable piece.
template <class T>
void readSet(std::set<T>& target, const std::string& text, char separator) {
    target.clear();
    const NumberReader reader;
    NumberPieces pieces(reader, text, separator);
    while (pieces.next()) {
        T value = 0;
        pieces.read(value);
        // Numbers are often in ascending order.
        target.insert(target.end(), value);
    }
}

/// Returns how many pieces a list probably has, more than `count`, which lie before its last `unread` bytes.
std::size_t expectedCount(std::size_t count, std::size_t unread, std::size_t size) {
    constexpr std::size_t fewest = 16;
    return count < fewest ? fewest : count + 1 + unread / ((size - unread) / count);
}

/// Reads each piece into the element at its position, so that a blank piece keeps that element's value.
template <class T>
void readVector(std::vector<T>& target, const std::string& text) {
    const NumberReader reader;
    NumberPieces pieces(reader, text, numberSeparator);
    std::size_t count = 0;
    for (; pieces.next(); ++count) {
        if (count == target.size()) {
            target.resize(expectedCount(count, pieces.unread(), text.size()));
        }
        pieces.read(target[count]);
    }
    target.resize(count);
}

/// Reads a list of exactly `Count` pieces.
/// \returns false for any other number of pieces
template <class T, std::size_t Count>
bool readExactly(std::array<T, Count>& numbers, const std::string& text) {
    const NumberReader reader;
    NumberPieces pieces(reader, text, numberSeparator);
    std::size_t count = 0;
    for (T surplus = 0; pieces.next(); ++count) {
        pieces.read(count < Count ? numbers[count] : surplus);
    }
    return count == Count;
}

/// Puts the lower number first. If they are equal, stores the second one twice ("0:-0" gives -0, -0), unlike std::minmax.
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
    forEachPiece(text, listSeparator, [&target](std::string_view piece) { target.emplace_hint(target.end(), piece); });
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
