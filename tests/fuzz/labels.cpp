// Labels of the global display. Input: eight bytes for the room, then the text. A label may fill its field without a NUL.
#include <kelplib/KelpProgress.h>

#include <algorithm>
#include <cstring>

#include "check.h"
#include "input.h"
#include "target.h"

namespace {

using fuzz::expectSame;

/// Returns the whole field, including the bytes after the text.
std::string field() {
    return {KELP_GlobalProgress.text, sizeof KELP_GlobalProgress.text};
}

std::string padded(std::string text) {
    text.resize(sizeof KELP_GlobalProgress.text, '\0');
    return text;
}

std::string shortened(const std::string& text, std::size_t room) {
    const std::size_t n = std::min<std::size_t>(std::max<std::size_t>(room, 6), 128);
    if (text.size() < n) {
        return text;
    }
    return text.substr(0, n / 2 - 3) + "..." + text.substr(text.size() - n / 2);
}

void compare(const std::string& text, std::size_t room) {
    std::fill_n(KELP_GlobalProgress.text, sizeof KELP_GlobalProgress.text, 'x');
    KELP_progress_global_set_text(text.c_str(), room);
    expectSame("label", field(), padded(shortened(text, room)));
}

}  // namespace

void fuzz::labels(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const auto room = input.number<unsigned long long>();
    const std::string text = untilNul(input.rest());
    compare(text, static_cast<std::size_t>(room));
    compare(text, static_cast<std::size_t>(room % 140));
    KELP_progress_global_init(1.0, 2, text.c_str(), 0);
    const std::string label = text.substr(0, 127);
    expectSame("label at set-up", std::string(KELP_GlobalProgress.text), label);
}
