#include <gtest/gtest.h>
#include <kelplib/FilePath.h>

#include <stdexcept>
#include <string>
#include <utility>

#include "fake_platform.h"

namespace {

/// File paths in a current directory of the test's choice.
class FilePathIn : public testing::Test {
protected:
    ~FilePathIn() override {
        fake_platform::reset();
    }

    static void directory(const char* text) {
        fake_platform::state().directory = text;
    }

    /// Returns the folder and the name with a bar between them.
    static std::string parts(const FilePath& file) {
        return file.getPath() + "|" + file.getName();
    }

    static std::string partsOf(const std::string& text) {
        try {
            return parts(FilePath(text));
        } catch (const std::out_of_range&) {
            return "out of range";
        }
    }
};

// The whole path.

TEST_F(FilePathIn, AnEmptyPathHasNoParts) {
    const FilePath file;
    EXPECT_EQ(parts(file), "|");
    EXPECT_EQ(file.filePath(), "");
    EXPECT_EQ(file.prefix(), "");
    EXPECT_EQ(file.extension(), "");
}

TEST_F(FilePathIn, TextsBecomeAbsolute) {
    const struct {
        const char* directory;
        const char* text;
        const char* parts;
    } cases[] = {
        // Absolute texts do not depend on the current directory.
        {"/home/u", "/", "/|"},
        {"/home/u", "/a", "/|a"},
        {"C:\\work", "/a/b.txt", "/a/|b.txt"},
        {"C:\\work", "/a\\b", "/|a\\b"},
        {"/home/u", "C:/data\\x.dat", "C:/|data\\x.dat"},
        {"/home/u", "C:\\data\\x.dat", "C:\\data\\|x.dat"},
        {"/home/u", "C:\\", "C:\\|"},
        {"/home/u", "C:file", "|"},
        {"/home/u", "C:", "|"},
        {"/home/u", "::", "|"},
        {"/home/u", "//a//b", "//a//|b"},
        {"/home/u", "/a/../b/.", "/a/../b/|."},
        // Relative texts take the delimiter of the current directory.
        {"C:\\work", "", "C:\\work\\|"},
        {"C:\\work", "sub/file.txt", R"(C:\work\sub\|file.txt)"},
        {"C:\\work", R"(\dir\file)", R"(C:\work\\dir\|file)"},
        {"C:\\", "name", "C:\\\\|name"},
        {"/home/u", "", "/home/u/|"},
        {"/home/u", "sub/file.txt", "/home/u/sub/|file.txt"},
        {"/home/u", "sub\\file.txt", "/home/u/sub/|file.txt"},
        {"/home/u", "\\dir\\file", "/home/u//dir/|file"},
        {"/home/u", "xy", "/home/u/|xy"},
        {"/home/u", "../a", "/home/u/../|a"},
        {"/home/u", "dir/", "/home/u/dir/|"},
        {"/", "name", "//|name"},
        {"C:\\a/b", "x\\y", "C:\\a/b/x/|y"},
        // Without a delimiter in the current directory, those of the text stay.
        {"", "sub/a\\b", "|sub/a\\b"},
        {"", "", "|"},
        {"work", "sub/a\\b", "work|sub/a\\b"},
        // The check for a drive letter reads the second character, which these texts do not have.
        {"/home/u", "x", "out of range"},
        {"/home/u", "\\", "out of range"},
        {"", "x", "out of range"},
    };
    for (const auto& c : cases) {
        directory(c.directory);
        EXPECT_EQ(partsOf(c.text), c.parts) << c.text << " in " << c.directory;
    }
}

TEST_F(FilePathIn, CutsATextAtItsLastDelimiter) {
    const struct {
        const char* text;
        char delimiter;
        const char* parts;
    } cases[] = {
        {"a/b/c", '/', "a/b/|c"}, {"a/b\\c", '\\', "a/b\\|c"}, {"a/b/", '/', "a/b/|"}, {"/", '/', "/|"},
        {"abc", '/', "|abc"},     {"a\\b", '/', "|a\\b"},      {"", '/', "|"},         {"a.b.c", '.', "a.b.|c"},
    };
    for (const auto& c : cases) {
        FilePath file("/old/name");
        file.fromString(c.text, c.delimiter);
        EXPECT_EQ(parts(file), c.parts) << c.text;
    }
}

TEST_F(FilePathIn, AppendsANameDirectlyToTheCurrentDirectory) {
    directory("C:\\work");
    FilePath file;
    file.fromNameInCurrentDir("f.txt");
    EXPECT_EQ(parts(file), "C:\\work|f.txt");
    EXPECT_EQ(file.filePath(), "C:\\workf.txt");
    directory("");
    file.fromNameInCurrentDir("a/b");
    EXPECT_EQ(parts(file), "|a/b");
}

TEST_F(FilePathIn, RecognizesAbsoluteTexts) {
    for (const char* text : {"/", "/a", "C:", "C:a", "::", "1:"}) {
        EXPECT_TRUE(FilePath::isAbsoluteFilePath(text)) << text;
    }
    for (const char* text : {"", "ab", "\\a", "\\dir\\file", "a/", "ab:"}) {
        EXPECT_FALSE(FilePath::isAbsoluteFilePath(text)) << text;
    }
    for (const char* text : {"a", ":", "\\", "."}) {
        EXPECT_THROW(FilePath::isAbsoluteFilePath(text), std::out_of_range) << text;
    }
}

TEST_F(FilePathIn, ReturnsTheCurrentDirectoryUnchanged) {
    for (const char* text : {"", "/", "/home/u", "C:\\work"}) {
        directory(text);
        EXPECT_EQ(FilePath::getCurrentDir(), text);
    }
}

TEST_F(FilePathIn, IsAPlainValue) {
    const FilePath original("/a/b.c");
    FilePath copy(original);
    copy.setName("d");
    EXPECT_EQ(original.filePath(), "/a/b.c");
    copy = original;
    const FilePath moved(std::move(copy));
    EXPECT_EQ(parts(moved), "/a/|b.c");
}

// Its parts.

using FilePathParts = FilePathIn;

TEST_F(FilePathParts, KnowsItsDelimiter) {
    const struct {
        const char* folder;
        const char* directory;
        const char* delimiter;
    } cases[] = {
        {"C:\\a/b\\", "C:\\work", "/"},
        {"C:\\b\\", "/home/u", "\\"},
        {"/b/", "C:\\work", "/"},
        {"", "C:\\work", "\\"},
        {"", "/home/u", "/"},
        {"", "C:\\a/b", "/"},
        {"", "", "/"},
        {"", "work", "/"},
    };
    for (const auto& c : cases) {
        directory(c.directory);
        FilePath file;
        file.setPath(c.folder);
        EXPECT_EQ(file.getDelim(), c.delimiter) << c.folder << " in " << c.directory;
    }
    directory("C:\\work");
    FilePath drive;
    ASSERT_TRUE(drive.setPath("C:"));
    EXPECT_EQ(drive.getDelim(), "\\") << "a folder without a delimiter takes that of the current directory";
}

TEST_F(FilePathParts, CutsNamesAtTheirLastDot) {
    const struct {
        const char* name;
        const char* prefix;
        const char* extension;
    } cases[] = {
        {"archive.tar.gz", "archive.tar", "gz"},
        {"README", "README", ""},
        {".cfg", "", "cfg"},
        {"file.", "file", ""},
        {"a.b.c", "a.b", "c"},
        {"", "", ""},
        {".", "", ""},
        {"..", ".", ""},
    };
    for (const auto& c : cases) {
        FilePath file("/dir.d/x");
        file.setName(c.name);
        EXPECT_EQ(file.prefix(), c.prefix) << c.name;
        EXPECT_EQ(file.extension(), c.extension) << c.name;
    }
}

TEST_F(FilePathParts, StoresTheLastComponentAsItsName) {
    const struct {
        const char* text;
        const char* name;
    } cases[] = {
        {"a/b\\c.txt", "c.txt"}, {"a\\b/c.txt", "c.txt"}, {"dir/", ""}, {"dir\\", ""}, {"x", "x"}, {"", ""},
        {"a\\b/", ""},
    };
    for (const auto& c : cases) {
        FilePath file("/old/name");
        file.setName(c.text);
        EXPECT_EQ(parts(file), std::string("/old/|") + c.name) << c.text;
    }
}

TEST_F(FilePathParts, TakesAbsoluteFoldersOnly) {
    FilePath file("/old/name");
    EXPECT_FALSE(file.setPath(""));
    EXPECT_FALSE(file.setPath("ab"));
    EXPECT_FALSE(file.setPath("\\dir\\"));
    EXPECT_THROW(file.setPath("a"), std::out_of_range);
    EXPECT_EQ(parts(file), "/old/|name");
    EXPECT_TRUE(file.setPath("C:\\dir\\"));
    EXPECT_EQ(parts(file), "C:\\dir\\|name");
    EXPECT_TRUE(file.setPath("/dir"));
    EXPECT_EQ(file.filePath(), "/dirname");
    EXPECT_TRUE(file.setPath(file.getPath()));
    EXPECT_TRUE(file.setPath("/"));
    EXPECT_EQ(parts(file), "/|name");
}

}  // namespace
