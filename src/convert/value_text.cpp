#include <kelplib/Kelp.h>

#include <algorithm>
#include <string_view>

#include "convert/number_text.h"

namespace {

constexpr std::string_view listSeparator = ", ";

/// Appends numbers to a text in blocks: appending each one separately takes as long as writing its digits.
class NumberAppender {
public:
    explicit NumberAppender(std::string& target) : text(target) {}

    void append(std::string_view before, double number) {
        if (block + sizeof block - end < static_cast<std::ptrdiff_t>(Kelp::numberTextRoom + before.size())) {
            flush();
        }
        end = Kelp::writeNumberText(std::copy(before.begin(), before.end(), end), number);
    }

    void flush() {
        text.append(block, end);
        end = block;
    }

private:
    std::string& text;
    char block[1024];
    char* end = block;
};

}  // namespace

std::string std::to_string(const Kelp::StringDouble& value) {
    std::string text = value.label;
    NumberAppender numbers(text);
    numbers.append(listSeparator, value.value);
    numbers.flush();
    return text;
}

std::string std::to_string(const std::vector<double>& values) {
    std::string text;
    NumberAppender numbers(text);
    std::string_view before;
    for (const double value : values) {
        numbers.append(before, value);
        before = listSeparator;
    }
    numbers.flush();
    return text;
}

std::string std::to_string(const std::vector<std::string>& values) {
    std::string text;
    std::string_view before;
    for (const std::string& value : values) {
        text += before;
        text += value;
        before = listSeparator;
    }
    return text;
}

std::string std::to_string(const std::string& value) {
    return value;
}

std::string std::to_string(const std::tuple<double, double>& value) {
    char text[2 * Kelp::numberTextRoom + 1];
    char* end = Kelp::writeNumberText(text, std::get<0>(value));
    *end++ = ':';
    end = Kelp::writeNumberText(end, std::get<1>(value));
    return {text, end};
}
