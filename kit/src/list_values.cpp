#include <algorithm>

#include "numbers.h"

namespace Kelpkit {

namespace {

// The separators of Kelp::stringToValue.
constexpr char colon = ':';
constexpr char comma = ',';

constexpr std::size_t pairSize = 2;
constexpr std::size_t tripleSize = 3;

/// Returns the pieces of the text, with the empty ones, which the library would drop.
std::vector<std::string> piecesOf(const std::string& text, char separator) {
    std::vector<std::string> pieces;
    std::size_t begin = 0;
    for (std::size_t end = 0; end != std::string::npos; begin = end + 1) {
        end = text.find(separator, begin);
        pieces.push_back(text.substr(begin, end - begin));
    }
    return pieces;
}

template <class Number>
bool areNumbers(const std::vector<std::string>& pieces, const Limits<Number>& limits) {
    return std::all_of(pieces.begin(), pieces.end(),
                       [&limits](const std::string& piece) { return numberWithin(piece, limits).has_value(); });
}

template <class List, class Number>
Read<List> readNumbers(const std::string& text, char separator, const Limits<Number>& limits) {
    const std::vector<std::string> pieces = piecesOf(text, separator);
    if (areNumbers(pieces, limits)) {
        return Read<List>::of(libraryValue<List>(text));
    }
    return Read<List>::expected(wordsFor("s", limits, pieces) + " separated by \"" + separator + "\"");
}

template <class List>
Read<List> readTexts(const std::string& text) {
    const std::vector<std::string> pieces = piecesOf(text, comma);
    if (std::none_of(pieces.begin(), pieces.end(), [](const std::string& piece) { return piece.empty(); })) {
        return Read<List>::of(libraryValue<List>(text));
    }
    return Read<List>::expected("texts separated by \",\", none of them empty");
}

/// Whether FROM is at most TO. The library would swap them.
template <class Number>
bool isInOrder(const std::vector<std::string>& pieces) {
    return !(*number<Number>(pieces.back()) < *number<Number>(pieces.front()));
}

template <class Number>
Read<std::tuple<Number, Number>> readRange(const std::string& text, const Limits<Number>& limits) {
    using Range = std::tuple<Number, Number>;
    const std::vector<std::string> pieces = piecesOf(text, colon);
    if (pieces.size() == pairSize && areNumbers(pieces, limits) && isInOrder<Number>(pieces)) {
        return Read<Range>::of(libraryValue<Range>(text));
    }
    return Read<Range>::expected("a range FROM:TO of " + wordsFor("s", limits, pieces) + ", the lower one first");
}

}  // namespace

Read<std::vector<int>> readValue(const std::string& text, Type<std::vector<int>> /*type*/, const Limits<int>& limits) {
    return readNumbers<std::vector<int>>(text, colon, limits);
}

Read<std::vector<double>> readValue(const std::string& text, Type<std::vector<double>> /*type*/,
                                    const Limits<double>& limits) {
    return readNumbers<std::vector<double>>(text, colon, limits);
}

Read<std::vector<std::string>> readValue(const std::string& text, Type<std::vector<std::string>> /*type*/) {
    return readTexts<std::vector<std::string>>(text);
}

Read<std::set<int>> readValue(const std::string& text, Type<std::set<int>> /*type*/, const Limits<int>& limits) {
    return readNumbers<std::set<int>>(text, comma, limits);
}

Read<std::set<double>> readValue(const std::string& text, Type<std::set<double>> /*type*/,
                                 const Limits<double>& limits) {
    return readNumbers<std::set<double>>(text, colon, limits);
}

Read<std::set<std::string>> readValue(const std::string& text, Type<std::set<std::string>> /*type*/) {
    return readTexts<std::set<std::string>>(text);
}

Read<std::tuple<double, double>> readValue(const std::string& text, Type<std::tuple<double, double>> /*type*/,
                                           const Limits<double>& limits) {
    return readRange(text, limits);
}

Read<std::tuple<float, float>> readValue(const std::string& text, Type<std::tuple<float, float>> /*type*/,
                                         const Limits<float>& limits) {
    return readRange(text, limits);
}

Read<std::tuple<unsigned int, unsigned int>> readValue(const std::string& text,
                                                       Type<std::tuple<unsigned int, unsigned int>> /*type*/,
                                                       const Limits<unsigned int>& limits) {
    return readRange(text, limits);
}

Read<std::tuple<unsigned int, unsigned int, unsigned int>> readValue(
    const std::string& text, Type<std::tuple<unsigned int, unsigned int, unsigned int>> /*type*/,
    const Limits<unsigned int>& limits) {
    using Triple = std::tuple<unsigned int, unsigned int, unsigned int>;
    const std::vector<std::string> pieces = piecesOf(text, colon);
    if (pieces.size() == tripleSize && areNumbers(pieces, limits)) {
        return Read<Triple>::of(libraryValue<Triple>(text));
    }
    return Read<Triple>::expected("three " + wordsFor("s", limits, pieces) + " separated by \":\"");
}

Read<Kelp::StringDouble> readValue(const std::string& text, Type<Kelp::StringDouble> /*type*/) {
    const std::vector<std::string> pieces = piecesOf(text, colon);
    if (pieces.size() == pairSize && !pieces.front().empty() && number<double>(pieces.back())) {
        return Read<Kelp::StringDouble>::of(libraryValue<Kelp::StringDouble>(text));
    }
    return Read<Kelp::StringDouble>::expected("a label and a " + wordsFor("", Limits<double>{}, {pieces.back()}) +
                                              ", LABEL:NUMBER");
}

}  // namespace Kelpkit
