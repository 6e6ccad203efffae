#include "convert/path_value.h"

#include <gtest/gtest.h>
#include <kelplib/Kelp.h>

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "shown_text.h"

namespace {

using namespace std::string_literals;
using std::filesystem::path;

constexpr bool pathsAreUtf16 = sizeof(path::value_type) == 2;

/// Returns the characters of a path, one or two bytes each.
std::u16string units(const path& converted) {
    std::u16string result;
    for (const path::value_type unit : converted.native()) {
        result += static_cast<char16_t>(static_cast<std::make_unsigned_t<path::value_type>>(unit));
    }
    return result;
}

/// Returns each byte of a text as a character.
std::u16string bytes(const std::string& text) {
    std::u16string result;
    for (const char byte : text) {
        result += static_cast<unsigned char>(byte);
    }
    return result;
}

struct PathCase {
    std::string text;
    std::u16string utf16;
};

const std::vector<PathCase>& wellFormed() {
    static const std::vector<PathCase> cases{
        {"", u""},
        {"a", u"a"},
        {"in dir/file.txt", u"in dir/file.txt"},
        {"a\\b", u"a\\b"},
        {" a ", u" a "},
        {"a\0b"s, u"a\0b"s},
        {"\x7F", u"\x7F"},
        {"\xC2\x80", u"\x80"},
        {"\xC3\xA4", u"\xE4"},
        {"\xDF\xBF", u"\x7FF"},
        {"\xE0\xA0\x80", u"\x800"},
        {"\xE2\x82\xAC", u"\x20AC"},
        {"\xED\x80\x80", u"\xD000"},
        {"\xED\x95\x9C", u"\xD55C"},
        {"\xED\x9F\xBF", u"\xD7FF"},
        {"\xED\x9F\xBF\xED\x9F\xBF", u"\xD7FF\xD7FF"},
        {"\xEE\x80\x80", u"\xE000"},
        {"\xEF\xBF\xBD", u"\xFFFD"},
        {"\xEF\xBF\xBE", u"\xFFFE"},
        {"\xEF\xBF\xBF", u"\xFFFF"},
        {"\xEF\xBB\xBF", u"\xFEFF"},
        {"\xEF\xBB\xBFname", u"\xFEFFname"},
        {"a\xEF\xBB\xBF", u"a\xFEFF"},
        {"\xF0\x90\x80\x80", u"\xD800\xDC00"},
        {"\xF0\x9F\x98\x80", u"\xD83D\xDE00"},
        {"x\xF0\x9F\x98\x80y/z", u"x\xD83D\xDE00y/z"},
        {"\xF3\xBF\xBF\xBF", u"\xDBBF\xDFFF"},
        {"\xF4\x80\x80\x80", u"\xDBC0\xDC00"},
        {"\xF4\x8F\xBF\xBF", u"\xDBFF\xDFFF"},
    };
    return cases;
}

const std::vector<std::string>& illFormed() {
    static const std::vector<std::string> texts{
        // continuation bytes without a leading byte, and bytes that are never valid
        "\x80",
        "\xBF",
        "\xC3\xA4\xA4",
        "\xE2\x82\xAC\x80",
        "\xFE",
        "\xFF",
        // overlong
        "\xC0\x80",
        "\xC0\xAF",
        "\xC1\xBF",
        "\xE0\x80\x80",
        "\xE0\x9F\xBF",
        "\xF0\x80\x80\x80",
        "\xF0\x8F\xBF\xBF",
        // surrogates, alone and as a pair
        "\xED\xA0\x80",
        "\xED\xAF\xBF",
        "\xED\xB0\x80",
        "\xED\xBF\xBF",
        "\xED\xA0\xBD\xED\xB8\x80",
        "\xED\x9F\xBF\xED\xA0\x80",
        // above U+10FFFF
        "\xF4\x90\x80\x80",
        "\xF4\xBF\xBF\xBF",
        "\xF5\x80\x80\x80",
        "\xF7\xBF\xBF\xBF",
        "\xF8\x88\x80\x80\x80",
        "\xFB\xBF\xBF\xBF\xBF",
        "\xFC\x84\x80\x80\x80\x80",
        "\xFD\xBF\xBF\xBF\xBF\xBF",
        // cut short
        "\xC3",
        "\xE2",
        "\xE2\x82",
        "\xED",
        "\xED\x9F",
        "\xF0",
        "\xF0\x9F",
        "\xF0\x9F\x98",
        "\xF4\x8F\xBF",
        "\xC3\xC3\xA4",
        "\xE2\x82\xC3\xA4",
        "\xF0\x9F\x98\xF0\x9F\x98\x80",
    };
    return texts;
}

TEST(PathValue, ReadsWellFormedTexts) {
    for (const PathCase& each : wellFormed()) {
        path target = "old/path";
        Kelp::stringToValue(target, each.text);
        EXPECT_EQ(units(target), pathsAreUtf16 ? each.utf16 : bytes(each.text)) << shown(each.text);
    }
}

TEST(PathValue, HasTheComponentsOfThePath) {
    path target = "old";
    Kelp::stringToValue(target, "dir/\xC3\xA4/file.txt");
    ASSERT_EQ(std::distance(target.begin(), target.end()), 3);
    EXPECT_EQ(*target.begin(), path("dir"));
    EXPECT_EQ(units(*std::next(target.begin())), pathsAreUtf16 ? u"\xE4" : u"\xC3\xA4");
    EXPECT_EQ(target.filename(), path("file.txt"));
    EXPECT_EQ(target.extension(), path(".txt"));
}

void expectRefusal(const std::string& text) {
    path target = "old/path";
    try {
        Kelp::stringToValue(target, text);
        ADD_FAILURE() << shown(text) << " was accepted";
    } catch (const std::filesystem::filesystem_error& error) {
        EXPECT_NE(std::string(error.what()).find("Cannot convert character sequence"), std::string::npos)
            << error.what();
        EXPECT_EQ(error.code(), std::make_error_code(std::errc::illegal_byte_sequence));
        EXPECT_EQ(error.code().category(), std::generic_category());
    }
    EXPECT_EQ(target, path("old/path"));
}

TEST(PathValue, RefusesIllFormedTextsOnlyWherePathsAreUtf16) {
    for (const std::string& sequence : illFormed()) {
        for (const std::string& text :
             {sequence, "a/" + sequence, sequence + "b", "\xF0\x9F\x98\x80" + sequence + "\xC3\xA4"}) {
            if (pathsAreUtf16) {
                expectRefusal(text);
            } else {
                path target = "old/path";
                Kelp::stringToValue(target, text);
                EXPECT_EQ(units(target), bytes(text)) << shown(text);
            }
        }
    }
}

TEST(PathValue, FindsEncodedSurrogates) {
    for (const char* const text :
         {"\xED\xA0\x80", "\xED\xAF\xBF", "\xED\xB0\x80", "\xED\xBF\xBF", "a\xED\xA0\x80", "\xED\xA0\x80z",
          "\xED\x9F\xBF\xED\xA0\x80", "\xED\xED\xA0\x80", "\xED\xA0\xBD\xED\xB8\x80"}) {
        EXPECT_TRUE(Kelp::containsEncodedSurrogate(text)) << shown(text);
    }
    EXPECT_TRUE(Kelp::containsEncodedSurrogate("\0\xED\xA0\x80"s));
    for (const PathCase& each : wellFormed()) {
        EXPECT_FALSE(Kelp::containsEncodedSurrogate(each.text)) << shown(each.text);
    }
    for (const char* const text :
         {"\xED", "a\xED", "\xED\x61", "\xED\x9F", "\xA0\x80", "\xEC\xA0\x80", "\xEE\xA0\x80"}) {
        EXPECT_FALSE(Kelp::containsEncodedSurrogate(text)) << shown(text);
    }
}

}  // namespace
