#ifndef KELPLIB_TESTS_FUZZ_INPUT_H
#define KELPLIB_TESTS_FUZZ_INPUT_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace fuzz {

/// A text as C reads it: to its first NUL.
inline std::string untilNul(const std::string& text) {
    return text.substr(0, text.find('\0'));
}

/// The bytes of one input, taken from the front. What is used up reads as 0 and as empty texts.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : begin(data), end(data + size) {}

    bool isEmpty() const {
        return begin == end;
    }

    /// A number by its bits.
    template <class T>
    T number() {
        T value{};
        const std::size_t count = std::min(sizeof value, static_cast<std::size_t>(end - begin));
        if (count > 0) {
            std::memcpy(&value, begin, count);
            begin += count;
        }
        return value;
    }

    /// What stands before the next line end.
    std::string line() {
        const std::uint8_t* const lineEnd = std::find(begin, end, std::uint8_t{'\n'});
        std::string text(begin, lineEnd);
        begin = lineEnd == end ? end : lineEnd + 1;
        return text;
    }

    /// A line as C reads it: to its first NUL.
    std::string cText() {
        return untilNul(line());
    }

    /// The number that a line begins with, in decimal, between two limits.
    int smallNumber(int low, int high) {
        return static_cast<int>(std::clamp<long>(std::strtol(line().c_str(), nullptr, 10), low, high));
    }

    std::vector<std::string> cTexts() {
        std::vector<std::string> texts;
        while (!isEmpty()) {
            texts.push_back(cText());
        }
        return texts;
    }

    std::string rest() {
        std::string text(begin, end);
        begin = end;
        return text;
    }

private:
    const std::uint8_t* begin;
    const std::uint8_t* end;
};

}  // namespace fuzz

#endif
