#include "mdoc_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "roff_quoting.h"

namespace {

using Kelpkit::programs::mdocArgument;
using Kelpkit::programs::mdocLiteral;
using Kelpkit::programs::mdocSummary;
using Kelpkit::programs::mdocText;
using Kelpkit::programs::mdocWords;
using Kelpkit::programs::roffLength;
using Kelpkit::programs::roffStart;
using Kelpkit::programs::roffText;
using Kelpkit::programs::roffWord;

struct Row {
    std::string text;
    std::string expected;
};

const std::string ten = "wwwwwwwwww";
const std::string sixty = ten + ten + ten + ten + ten + ten;

TEST(RoffQuoting, Text) {
    const std::vector<Row> rows{
        {"", ""},
        {"a b  c", "a b  c"},
        {R"(\)", R"(\e)"},
        {R"(\fBx\n\*x\")", R"(\efBx\en\e*x\e\(dq)"},
        {"--number=-3", R"(\-\-number=\-3)"},
        {"'a' \"b\" `c` ^d ~e", R"(\(aqa\(aq \(dqb\(dq \(gac\(ga \(had \(tie)"},
        {"%s .x {#} $1 @ & | < > * ? ! /", "%s .x {#} $1 @ & | < > * ? ! /"},
        {"\xC3\xA9 \xE6\x97\xA5 \xF0\x9F\x98\x80 e\xCC\x81", "\xC3\xA9 \xE6\x97\xA5 \xF0\x9F\x98\x80 e\xCC\x81"},
        {"\xCD\xBE \xE2\x84\xAA", "; K"},
        {"\x01 \x1b[0m \x7f \xC2\x85 \xFF", R"(\ex01 \ex1b[0m \ex7f \exc2\ex85 \exff)"},
        {std::string("a\0b", 3), R"(a\ex00b)"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(roffText(row.text), row.expected) << row.text;
    }
}

TEST(RoffQuoting, Word) {
    const std::string kanji = "\xE6\x97\xA5";
    const std::string five = kanji + kanji + kanji + kanji + kanji;
    const std::string thirty = five + five + five + five + five + five;
    const std::vector<Row> rows{
        {"", ""},
        {"a-b", R"(a\-b)"},
        {sixty, sixty},
        {sixty + "w", R"(wwwwwwwwww\:wwwwwwwwww\:wwwwwwwwww\:wwwwwwwwww\:wwwwwwwwww\:wwwwwwwwww\:w)"},
        {thirty, thirty},
        {thirty + "w", five + "\\:" + five + "\\:" + five + "\\:" + five + "\\:" + five + "\\:" + five + "\\:w"},
        // A mark stays with its letter.
        {ten + "\xCC\x81\xCD\x9F" + sixty,
         ten + "\xCC\x81\xCD\x9F" + R"(\:wwwwwwwwww\:wwwwwwwwww\:wwwwwwwwww\:wwwwwwwwww\:wwwwwwwwww\:wwwwwwwwww)"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(roffWord(row.text, 60), row.expected) << row.text;
    }
}

TEST(RoffQuoting, Start) {
    EXPECT_EQ(roffStart("a-b", 0), "");
    EXPECT_EQ(roffStart("a-b", 2), R"(a\-)");
    EXPECT_EQ(roffStart("a-b", 4), R"(a\-b)");
    EXPECT_EQ(roffStart("\xC3\xA9\xE6\x97\xA5x", 2), "\xC3\xA9");
    EXPECT_EQ(roffStart("\xC3\xA9\xE6\x97\xA5x", 3), "\xC3\xA9\xE6\x97\xA5");
}

TEST(RoffQuoting, Length) {
    EXPECT_EQ(roffLength(""), 0U);
    EXPECT_EQ(roffLength(R"(a\-b)"), 4U);
    EXPECT_EQ(roffLength("a\xC3\xA9\xE6\x97\xA5\xF0\x9F\x98\x80"), 31U);
}

TEST(MdocText, Words) {
    EXPECT_EQ(mdocWords(" a\t\r\n b "), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(mdocWords(" \n "), std::vector<std::string>());
}

TEST(MdocText, Text) {
    const std::vector<Row> rows{
        {"", ""},
        {" \t\r\n ", ""},
        {"how many lines", "how many lines\n"},
        {" a \t b\r\n\nc ", "a b c\n"},
        // At the beginning of a line
        {".SH x", "\\&.SH x\n"},
        {"a\n.SH x\n'br", "a \\&.SH x \\(aqbr\n"},
        {"...", "\\&...\n"},
        {"-x", "\\-x\n"},
        // Sentences
        {"One. Two! Three? Four", "One.\nTwo!\nThree?\nFour\n"},
        {"See (a.) B", "See (a.)\nB\n"},
        {"Say \"a.\" B", "Say \\(dqa.\\(dq\nB\n"},
        {"e.g. this, i.e. that.", "e.g.\\& this, i.e.\\& that.\n"},
        {"in 1. \xC3\x89t\xC3\xA9", "in 1.\\& \xC3\x89t\xC3\xA9\n"},
        // Long lines
        {sixty + " 34567890123456789", sixty + " 34567890123456789\n"},
        {sixty + " 345678901234567890", sixty + " 345678901234567890\n"},
        {sixty + " 3456789012345678901", sixty + "\n3456789012345678901\n"},
        {sixty + " 34567890\xC3\xA9", sixty + " 34567890\xC3\xA9\n"},
        {sixty + " 345678901\xC3\xA9", sixty + "\n345678901\xC3\xA9\n"},
        {"a " + sixty + sixty + " b",
         "a\nwwwwwwwwww\\:wwwwwwwwww\\:wwwwwwwwww\\:wwwwwwwwww\\:wwwwwwwwww\\:wwwwwwwwww\\:"
         "wwwwwwwwww\\:wwwwwwwwww\\:wwwwwwwwww\\:wwwwwwwwww\\:wwwwwwwwww\\:wwwwwwwwww\nb\n"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(mdocText(row.text), row.expected) << row.text;
    }
}

TEST(MdocText, Literal) {
    const std::vector<Row> rows{
        {"", "\n"},
        {"firstlines -n=3 notes.txt", "firstlines \\-n=3 notes.txt\n"},
        {"a  b  ", "a  b\n"},
        {"  a\tb\t", "  a b\n"},
        {".x\r\n\n.y", "\\&.x\n\n\\&.y\n"},
        {"'x' \\", "\\(aqx\\(aq \\e\n"},
        {sixty + sixty, sixty + sixty + "\n"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(mdocLiteral(row.text), row.expected) << row.text;
    }
}

TEST(MdocText, Argument) {
    const std::vector<Row> rows{
        {"", "\\&"},
        {" \n ", "\\&"},
        {"LINES", "LINES"},
        {"-number", "\\-number"},
        {"two\n\twords ", "\"two words\""},
        {"a\"b c", R"("a\(dqb c")"},
        // Macros
        {"Ar", "\\&Ar"},
        {"Bsx", "\\&Bsx"},
        {"%A", "\\&%A"},
        {"Op x", R"("\&Op x")"},
        {"D1", "\\&D1"},
        {"Text", "Text"},
        {"n", "n"},
        {"N", "N"},
        {"ar", "ar"},
        // Punctuation
        {".", "\\&."},
        {",", "\\&,"},
        {":", "\\&:"},
        {";", "\\&;"},
        {"(", "\\&("},
        {")", "\\&)"},
        {"[", "\\&["},
        {"]", "\\&]"},
        {"?", "\\&?"},
        {"!", "\\&!"},
        {"|", "\\&|"},
        {"=", "="},
        {"FILE...", "FILE...\\&"},
        {"a b)", R"("a b)\&")"},
        {"\xC3\xA9", "\xC3\xA9\\&"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(mdocArgument(row.text), row.expected) << row.text;
    }
}

TEST(MdocText, Summary) {
    const std::string start = "wwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwww";
    const std::vector<Row> rows{
        {"", ""},
        {" ", ""},
        {".", ""},
        {"Shows lines.", "Shows lines"},
        {"Shows lines", "Shows lines"},
        {"Shows\n .lines ", "Shows .lines"},
        {"Shows lines. Also others.", "Shows lines"},
        {"Shows e.g. lines.", "Shows e.g. lines"},
        {"Shows lines!", "Shows lines!\\&"},
        {"Shows lines...", "Shows lines...\\&"},
        {"Shows lines .", "Shows lines"},
        {"Shows lines (all).", "Shows lines (all)\\&"},
        {"Shows \xC3\xA9", "Shows \xC3\xA9\\&"},
        {"Ar Op ( No", R"(\&Ar \&Op \&( \&No)"},
        {start, start},
        {start + "w", start + " ...\\&"},
        {"Shows " + start + "w more", "Shows " + start + " ...\\&"},
        {start + " " + start + " " + start + " " + start + " " + start + " " + start + " more",
         start + " " + start + " " + start + " " + start + " " + start + " " + start + " ...\\&"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(mdocSummary(row.text), row.expected) << row.text;
    }
}

}  // namespace
