#include "man_sections.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Kelpkit::programs::insertManSections;
using Kelpkit::programs::ManSection;
using Kelpkit::programs::readManSections;

/// Returns the sections of a page with NAME, EXIT STATUS and EXAMPLES after others are inserted, as a text.
std::string pageWith(const std::string& sections) {
    std::vector<ManSection> page{{"NAME", "name\n"}, {"EXIT STATUS", "status\n"}, {"EXAMPLES", "examples\n"}};
    insertManSections(page, sections);
    std::string text;
    for (const ManSection& section : page) {
        text += "[" + section.title + "] " + section.text;
    }
    return text;
}

TEST(ManSections, Inserted) {
    EXPECT_EQ(pageWith(""), "[NAME] name\n[EXIT STATUS] status\n[EXAMPLES] examples\n");
    EXPECT_EQ(pageWith(".\\\" mine\n\nlost\n.Sh BUGS\none\n\n.Pp\ntwo\n.Sh \"SEE ALSO\" \n.Xr x 1"),
              "[NAME] name\n[EXIT STATUS] status\n[EXAMPLES] examples\n[SEE ALSO] .Xr x 1\n[BUGS] one\n\n.Pp\ntwo\n");
    EXPECT_EQ(pageWith(".Sh ENVIRONMENT\na\n.Sh SECOND\nb\n.Sh FIRST\nc\n.Sh DIAGNOSTICS\nd\n"),
              "[NAME] name\n[ENVIRONMENT] a\n[EXIT STATUS] status\n[SECOND] b\n[FIRST] c\n[EXAMPLES] examples\n"
              "[DIAGNOSTICS] d\n");
}

TEST(ManSections, Replaced) {
    EXPECT_EQ(pageWith(".Sh EXIT STATUS\nmine\n.Sh BUGS\none\n"),
              "[NAME] name\n[EXIT STATUS] mine\n[EXAMPLES] examples\n[BUGS] one\n");
}

TEST(ManSections, Order) {
    std::vector<ManSection> page;
    const std::vector<std::string> titles{"NAME",
                                          "LIBRARY",
                                          "SYNOPSIS",
                                          "DESCRIPTION",
                                          "OPTIONS",
                                          "CONTEXT",
                                          "IMPLEMENTATION NOTES",
                                          "RETURN VALUES",
                                          "ENVIRONMENT",
                                          "FILES",
                                          "EXIT STATUS",
                                          "OTHER",
                                          "EXAMPLES",
                                          "DIAGNOSTICS",
                                          "COMPATIBILITY",
                                          "ERRORS",
                                          "SEE ALSO",
                                          "STANDARDS",
                                          "HISTORY",
                                          "AUTHORS",
                                          "CAVEATS",
                                          "BUGS",
                                          "SECURITY CONSIDERATIONS"};
    for (auto title = titles.rbegin(); title != titles.rend(); ++title) {
        insertManSections(page, ".Sh " + *title + "\n");
    }
    std::vector<std::string> order;
    order.reserve(page.size());
    for (const ManSection& section : page) {
        order.push_back(section.title);
    }
    // OTHER has the place of EXIT STATUS, which came later.
    std::vector<std::string> expected = titles;
    std::swap(expected[10], expected[11]);
    EXPECT_EQ(order, expected);
}

class ManSectionsFile : public ::testing::Test {
protected:
    void TearDown() override {
        std::filesystem::remove(name);
    }
    /// Returns what is read from a file with these bytes, or the message.
    std::string readBack(const std::string& bytes) const {
        std::ofstream(name, std::ios::binary) << bytes;
        try {
            return readManSections(name);
        } catch (const std::runtime_error& error) {
            const std::string message = error.what();
            return message.substr(0, name.size()) == name ? message.substr(name.size()) : message;
        }
    }
    const std::string name =
        (std::filesystem::temp_directory_path() /
         (std::string("man_sections_") + ::testing::UnitTest::GetInstance()->current_test_info()->name()))
            .u8string();
};

TEST_F(ManSectionsFile, Read) {
    for (const std::string text : {".Sh A\n", ".Sh A", "\n.\\\" x\n\n.Sh A\n\tb\xC3\xA9\n\n", ".Sh A\n.Sh B\n"}) {
        EXPECT_EQ(readBack(text), text);
    }
    EXPECT_EQ(readBack(".Sh A\r\nb\r\n"), ".Sh A\nb\n");
    const std::string large = ".Sh A\n" + std::string(999'993, 'x') + "\n";
    EXPECT_EQ(readBack(large), large);
}

TEST_F(ManSectionsFile, Refused) {
    const std::string what = ": not man page sections: ";
    EXPECT_EQ(readBack(""), what + "line 1: expected \".Sh\" and a title");
    EXPECT_EQ(readBack("\n\n"), what + "line 3: expected \".Sh\" and a title");
    EXPECT_EQ(readBack("\n.Dd x\n.Sh A\n"), what + "line 2: expected \".Sh\" and a title");
    EXPECT_EQ(readBack(".Sh"), what + "line 1: expected \".Sh\" and a title");
    EXPECT_EQ(readBack(".Sh  \""), what + "line 1: expected \".Sh\" and a title");
    EXPECT_EQ(readBack(".Sh A\n.Sh   \n"), what + "line 2: expected \".Sh\" and a title");
    EXPECT_EQ(readBack(".Sh A\nb\n.Sh"), what + "line 3: expected \".Sh\" and a title");
    EXPECT_EQ(readBack(".Sh A\n.Sh \"\"\n"), what + "line 2: expected \".Sh\" and a title");
    EXPECT_EQ(readBack(".Sh A\nb\n.Sh C\n.Sh \"A\" \n"), what + "line 4: expected a title that no section above has");
    EXPECT_EQ(readBack(std::string(".Sh A\n\0", 7)), what + "line 2: expected printable characters in UTF-8");
    EXPECT_EQ(readBack(".Sh A\n\xFF"), what + "line 2: expected printable characters in UTF-8");
    EXPECT_EQ(readBack(".Sh A\nb\x1b[0m"), what + "line 2: expected no control characters");
    EXPECT_EQ(readBack(".Sh A\n\n\x7f"), what + "line 3: expected no control characters");
    EXPECT_EQ(readBack(".Sh A\r\nb\n"), what + "line 2: expected a line end as in line 1");
    EXPECT_EQ(readBack(".Sh A\nb\rc\n"), what + "line 2: expected no control characters");
    EXPECT_EQ(readBack(".Sh A\n" + std::string(999'995, 'x')), " has more than 1000000 bytes");
}

}  // namespace
