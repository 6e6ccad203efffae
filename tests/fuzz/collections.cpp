// Reads the whole input as the text of every list, set and tuple, over old contents.
#include <kelplib/Kelp.h>

#include "check.h"
#include "input.h"
#include "number_model.h"
#include "pieces_of.h"
#include "target.h"

namespace {

using fuzz::expectSame;
using number_model::numberOver;
using Strings = std::vector<std::string>;

template <class T>
void expectValue(const char* type, T old, const std::string& text, const T& expected) {
    Kelp::stringToValue(old, text);
    expectSame(type, old, expected);
}

template <class T>
void expectSet(const char* type, const std::string& text, char separator) {
    std::set<T> expected;
    for (const std::string& piece : piecesOf(text, separator)) {
        expected.insert(numberOver(T(0), piece));
    }
    expectValue<std::set<T>>(type, {1, 2}, text, expected);
}

template <class T>
void expectVector(const char* type, const std::string& text) {
    const std::vector<T> old{1, 2, 3};
    std::vector<T> expected;
    for (const std::string& piece : piecesOf(text, ':')) {
        const std::size_t i = expected.size();
        expected.push_back(numberOver(i < old.size() ? old[i] : T(0), piece));
    }
    expectValue(type, old, text, expected);
}

template <class T>
void expectPair(const char* type, const std::string& text) {
    std::tuple<T, T> expected{9, 8};
    const Strings pieces = piecesOf(text, ':');
    if (pieces.size() == 2) {
        const T a = numberOver(T(0), pieces[0]);
        const T b = numberOver(T(0), pieces[1]);
        expected = {a < b ? a : b, a > b ? a : b};
    }
    expectValue<std::tuple<T, T>>(type, {9, 8}, text, expected);
}

void expectTriple(const std::string& text) {
    using Triple = std::tuple<unsigned int, unsigned int, unsigned int>;
    Triple expected{9, 8, 7};
    const Strings pieces = piecesOf(text, ':');
    if (pieces.size() == 3) {
        expected = {numberOver(0U, pieces[0]), numberOver(0U, pieces[1]), numberOver(0U, pieces[2])};
    }
    expectValue<Triple>("three numbers", {9, 8, 7}, text, expected);
}

}  // namespace

void fuzz::collections(const std::uint8_t* data, std::size_t size) {
    const std::string text = Input(data, size).rest();
    const Strings texts = piecesOf(text, ',');
    expectValue<Strings>("vector of strings", {"old"}, text, texts);
    expectValue<std::set<std::string>>("set of strings", {"old"}, text, {texts.begin(), texts.end()});
    expectSet<int>("set of int", text, ',');
    expectVector<int>("vector of int", text);
    expectPair<unsigned int>("two unsigned int", text);
    expectTriple(text);
    if (number_model::exactCLibrary) {
        expectSet<double>("set of double", text, ':');
        expectVector<double>("vector of double", text);
        expectPair<float>("two float", text);
        expectPair<double>("two double", text);
    }
}
