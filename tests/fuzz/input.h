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

/// Returns the text up to its first NUL, as C reads it.
inline std::string untilNul(const std::string& text) {
    return text.substr(0, text.find('\0'));
}

/// Reads the bytes of one input from front to back. At the end numbers are 0 and texts empty.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : begin(data), end(data + size) {}

    bool isEmpty() const {
        return begin == end;
    }

    /// Reads a number from its bytes.
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

    /// Reads up to the next line feed, which it skips.
    std::string line() {
        const std::uint8_t* const lineEnd = std::find(begin, end, std::uint8_t{'\n'});
        std::string text(begin, lineEnd);
        begin = lineEnd == end ? end : lineEnd + 1;
        return text;
    }

    /// Reads a line and returns it up to its first NUL, as C reads it.
    std::string cText() {
        return untilNul(line());
    }

    /// Reads a line and returns the decimal number at its start, clamped to the limits.
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
