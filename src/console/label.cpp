#include "console/label.h"

#include <algorithm>

#include "console/bounded_text.h"

namespace Kelp {

void storeLabel(char (&label)[labelCapacity], std::string_view text, std::size_t maxLength) {
    constexpr std::string_view gap = "...";
    BoundedText stored(label, labelCapacity);
    const std::size_t limit = std::clamp<std::size_t>(maxLength, 6, labelCapacity);
    if (text.size() < limit) {
        stored.append(text);
        return;
    }
    const std::size_t half = limit / 2;
    stored.append(text.substr(0, half - gap.size()));
    stored.append(gap);
    stored.append(text.substr(text.size() - half));
}

std::string_view labelText(const char (&label)[labelCapacity]) {
    return {label, static_cast<std::size_t>(std::find(label, label + labelCapacity, '\0') - label)};
}

}  // namespace Kelp
