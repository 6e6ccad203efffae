#include <stdexcept>

#include "file_path_test.h"

namespace {

using FilePathParts = FilePathTest;

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
    EXPECT_EQ(drive.getDelim(), "\\") << "a folder without a delimiter asks the current directory";
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
