#include <stdexcept>
#include <utility>

#include "file_path_test.h"

namespace {

class FilePathIn : public FilePathTest {
protected:
    static std::string partsOf(const std::string& text) {
        try {
            return parts(FilePath(text));
        } catch (const std::out_of_range&) {
            return "out of range";
        }
    }
};

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
        // Absolute texts stay as they are, wherever the tool stands.
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
        // Relative ones take the delimiter of the current directory.
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
        // Without a usable directory nothing is rewritten.
        {"", "sub/a\\b", "|sub/a\\b"},
        {"", "", "|"},
        {"work", "sub/a\\b", "work|sub/a\\b"},
        // One character is too short to ask for its second.
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

TEST_F(FilePathIn, PutsANameDirectlyBehindTheCurrentDirectory) {
    directory("C:\\work");
    FilePath file;
    file.fromNameInCurrentDir("f.txt");
    EXPECT_EQ(parts(file), "C:\\work|f.txt");
    EXPECT_EQ(file.filePath(), "C:\\workf.txt");
    directory("");
    file.fromNameInCurrentDir("a/b");
    EXPECT_EQ(parts(file), "|a/b");
}

TEST_F(FilePathIn, TellsAbsoluteTexts) {
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

TEST_F(FilePathIn, HandsOutTheCurrentDirectoryAsItIs) {
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

}  // namespace
