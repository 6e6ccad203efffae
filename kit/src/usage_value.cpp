#include <algorithm>
#include <initializer_list>
#include <sstream>
#include <string_view>

#include "ascii_case.h"
#include "usage_line.h"

namespace Kelpkit {

namespace {

/// Returns what the end of a name stands for.
Takes kindOf(std::string_view name) {
    const auto ends = [&name](std::string_view word) {
        return name.size() >= word.size() && equalIgnoringCase(name.substr(name.size() - word.size()), word);
    };
    const auto endsWithOneOf = [&ends](std::initializer_list<std::string_view> words) {
        return std::any_of(words.begin(), words.end(), ends);
    };
    name.remove_suffix(ends("s") ? 1 : 0);
    if (endsWithOneOf({"file", "filename", "path", "input", "output"})) {
        return Takes::file;
    }
    return endsWithOneOf({"dir", "directory", "folder"}) ? Takes::folder : Takes::text;
}

/// Whether one of several alternatives is the name of a value, as LINES and <lines> are.
bool isName(const std::string& text) {
    const auto isUpper = [](char each) { return each >= 'A' && each <= 'Z'; };
    const auto isLower = [](char each) { return each >= 'a' && each <= 'z'; };
    return text.find('<') != std::string::npos ||
           (std::any_of(text.begin(), text.end(), isUpper) && std::none_of(text.begin(), text.end(), isLower));
}

}  // namespace

std::string unwrapped(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    text = text.substr(0, text.find_last_not_of(blanks) + 1);
    const std::size_t kind = text.size() < 3 ? std::string_view::npos : valueOpenings.find(text.front());
    const bool isWrapped = kind != std::string_view::npos && text.find(valueClosings[kind], 1) == text.size() - 1;
    return std::string(isWrapped ? text.substr(1, text.size() - 2) : text);
}

Value valueOf(const std::string& text) {
    Value value{Takes::text, "", {}};
    std::istringstream alternatives(unwrapped(text));
    const bool isAlone = alternatives.str().find('|') == std::string::npos;
    for (std::string each; std::getline(alternatives, each, '|');) {
        const std::string word = unwrapped(each);
        if (isAlone || isName(each)) {
            value.name += (value.name.empty() ? "" : "|") + word;
            value.takes = value.takes == Takes::text ? kindOf(word) : value.takes;
        } else if (!word.empty()) {
            value.choices.push_back(word);
        }
    }
    if (value.takes != Takes::text) {
        value.choices.clear();
    } else if (!value.choices.empty()) {
        value.takes = Takes::choice;
    }
    return value;
}

}  // namespace Kelpkit
