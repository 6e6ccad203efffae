#include "console/bounded_text.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace Kelp {

void BoundedText::append(std::string_view text) {
    const std::size_t count = std::min(text.size(), room());
    std::memcpy(begin + length, text.data(), count);
    length += count;
}

void BoundedText::append(char character, std::size_t count) {
    const std::size_t fitting = std::min(count, room());
    std::memset(begin + length, character, fitting);
    length += fitting;
}

void BoundedText::append(int number) {
    char digits[16];
    const int count = std::snprintf(digits, sizeof digits, "%d", number);
    append(std::string_view(digits, static_cast<std::size_t>(count)));
}

void BoundedText::appendTenths(double number) {
    // The largest double has 309 digits before its point.
    char digits[320];
    const int count = std::snprintf(digits, sizeof digits, "%.1f", number);
    append(std::string_view(digits, static_cast<std::size_t>(count)));
}

}  // namespace Kelp
