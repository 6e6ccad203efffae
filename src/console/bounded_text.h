#ifndef KELPLIB_CONSOLE_BOUNDED_TEXT_H
#define KELPLIB_CONSOLE_BOUNDED_TEXT_H

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace Kelp {

/// Builds a text in the caller's buffer and cuts off whatever does not fit.
class BoundedText {
public:
    BoundedText(char* buffer, std::size_t capacity) : begin(buffer), capacity(capacity) {}

    void append(std::string_view text) {
        const std::size_t count = std::min(text.size(), room());
        std::memcpy(begin + length, text.data(), count);
        length += count;
    }

    void append(char character, std::size_t count) {
        const std::size_t fitting = std::min(count, room());
        std::memset(begin + length, character, fitting);
        length += fitting;
    }

    /// Appends the number in decimal.
    void append(int number);

    /// Appends the number with one decimal, as printf's "%.1f" writes it.
    void appendTenths(double number);

    std::size_t room() const {
        return capacity - length;
    }

    std::string_view view() const {
        return {begin, length};
    }

private:
    char* begin;
    std::size_t capacity;
    std::size_t length = 0;
};

}  // namespace Kelp

#endif
