#include <array>

#include "formats.h"

namespace Kelpkit::programs {

namespace {

constexpr std::array<const char*, 6> kinds{"unknown", "nothing", "text", "file", "folder", "choice"};
static_assert(static_cast<std::size_t>(Takes::choice) + 1 == kinds.size(), "one word a kind");

std::string escaped(char character) {
    constexpr std::string_view digits = "0123456789abcdef";
    const auto byte = static_cast<unsigned char>(character);
    if (character == '"' || character == '\\') {
        return {'\\', character};
    }
    if (byte < ' ' || byte == 0x7f) {
        return std::string(R"(\u00)") + digits[byte / 16U] + digits[byte % 16U];
    }
    return {character};
}

std::string quoted(const std::string& text) {
    std::string result = "\"";
    for (const char character : text) {
        result += escaped(character);
    }
    return result + "\"";
}

std::string member(const char* name, const std::string& text) {
    return quoted(name) + ": " + quoted(text);
}

std::string truth(const char* name, bool value) {
    return quoted(name) + (value ? ": true" : ": false");
}

/// Returns an array of elements in JSON, with these blanks before each and after the last.
std::string array(const std::vector<std::string>& elements, const std::string& before, const std::string& after) {
    std::string text = "[";
    for (const std::string& element : elements) {
        text.append(&element == &elements.front() ? "" : ",").append(before).append(element);
    }
    return text + (elements.empty() ? "" : after) + "]";
}

std::string object(const DescribedOption& option) {
    std::vector<std::string> choices;
    for (const std::string& choice : option.choices) {
        choices.push_back((choices.empty() ? "" : " ") + quoted(choice));
    }
    return "{" + member("short", option.shortForm) + ", " + member("long", option.longForm) + ", " +
           member("text", option.text) + ", " + member("takes", kinds[static_cast<std::size_t>(option.takes)]) + ", " +
           member("value", option.valueName) + ", \"choices\": " + array(choices, "", "") + "}";
}

std::string object(const DescribedArgument& argument) {
    return "{" + member("name", argument.name) + ", " + member("text", argument.text) + ", " +
           truth("repeated", argument.repeated) + ", " + truth("optional", argument.optional) + "}";
}

/// Returns an array of objects, one a line.
template <class Record>
std::string lines(const std::vector<Record>& records) {
    std::vector<std::string> objects;
    objects.reserve(records.size());
    for (const Record& record : records) {
        objects.push_back(object(record));
    }
    return array(objects, "\n    ", "\n  ");
}

}  // namespace

std::string json(const DescribedTool& tool) {
    std::string text = "{\n  \"format\": 1,\n";
    for (const auto& [name, value] :
         {std::pair("name", &tool.name), std::pair("banner", &tool.banner), std::pair("description", &tool.description),
          std::pair("usage", &tool.usage), std::pair("example", &tool.example)}) {
        text += "  " + member(name, *value) + ",\n";
    }
    return text + "  \"options\": " + lines(tool.options) + ",\n  \"arguments\": " + lines(tool.arguments) + "\n}\n";
}

}  // namespace Kelpkit::programs
