#ifndef KELPLIB_TESTS_UTF16_MODEL_H
#define KELPLIB_TESTS_UTF16_MODEL_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

/// A model of the conversion from UTF-8 to UTF-16.
namespace utf16_model {

/// Returns the code point at `position` and advances `position` past it. Returns nothing if it is ill-formed.
inline std::optional<std::uint32_t> codePoint(const std::string& text, std::size_t& position) {
    const auto byte = [&](std::size_t offset) -> std::uint32_t {
        return position + offset < text.size() ? static_cast<unsigned char>(text[position + offset]) : 0U;
    };
    struct Form {
        std::uint32_t mask;
        std::uint32_t lead;
        std::size_t length;
        std::uint32_t lowest;
    };
    constexpr std::array<Form, 4> forms{
        {{0x80, 0x00, 1, 0}, {0xE0, 0xC0, 2, 0x80}, {0xF0, 0xE0, 3, 0x800}, {0xF8, 0xF0, 4, 0x10000}}};
    for (const Form& form : forms) {
        if ((byte(0) & form.mask) != form.lead) {
            continue;
        }
        std::uint32_t point = byte(0) & ~form.mask;
        for (std::size_t i = 1; i < form.length; ++i) {
            if ((byte(i) & 0xC0U) != 0x80U) {
                return std::nullopt;
            }
            point = point * 64 + (byte(i) & 0x3FU);
        }
        position += form.length;
        const bool surrogate = point >= 0xD800 && point <= 0xDFFF;
        return point < form.lowest || point > 0x10FFFF || surrogate ? std::nullopt : std::optional(point);
    }
    return std::nullopt;
}

/// Returns the characters of the path that a UTF-8 text names, or nothing if the text is ill-formed.
inline std::optional<std::filesystem::path::string_type> nativePath(const std::string& text) {
    using Unit = std::filesystem::path::value_type;
    std::filesystem::path::string_type units;
    if constexpr (sizeof(Unit) == 1) {
        units.assign(text.begin(), text.end());
    } else {
        for (std::size_t position = 0; position < text.size();) {
            const auto point = codePoint(text, position);
            if (!point) {
                return std::nullopt;
            }
            if (*point < 0x10000) {
                units += static_cast<Unit>(*point);
            } else {
                units += static_cast<Unit>(0xD800 + (*point - 0x10000) / 0x400);
                units += static_cast<Unit>(0xDC00 + (*point - 0x10000) % 0x400);
            }
        }
    }
    return units;
}

}  // namespace utf16_model

#endif
