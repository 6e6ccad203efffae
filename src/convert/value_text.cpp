#include <kelplib/Kelp.h>

#include "convert/number_text.h"

namespace {

constexpr char listSeparator[] = ", ";

/// The elements' texts, one behind the other with separators between them.
template <class T, class Append>
std::string joined(const std::vector<T>& elements, Append append) {
    std::string text;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        if (i > 0) {
            text += listSeparator;
        }
        append(text, elements[i]);
    }
    return text;
}

}  // namespace

std::string std::to_string(const Kelp::StringDouble& value) {
    std::string text = value.label + listSeparator;
    Kelp::appendNumberText(text, value.value);
    return text;
}

std::string std::to_string(const std::vector<double>& values) {
    return joined(values, Kelp::appendNumberText);
}

std::string std::to_string(const std::vector<std::string>& values) {
    return joined(values, [](std::string& text, const std::string& value) { text += value; });
}

std::string std::to_string(const std::string& value) {
    return value;
}

std::string std::to_string(const std::tuple<double, double>& value) {
    std::string text;
    Kelp::appendNumberText(text, std::get<0>(value));
    text += ':';
    Kelp::appendNumberText(text, std::get<1>(value));
    return text;
}
