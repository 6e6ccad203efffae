#include <gtest/gtest.h>
#include <kelplib/CommandLineTool.h>

#include <cstdlib>

#include "flush_recorder.h"
#include "scoped_variable.h"
#include "shown_text.h"

namespace {

struct Found {
    std::string file;
    std::string printed;  ///< "~" for every flush
};

Found findWithPath(const std::optional<std::string>& path) {
    const ScopedVariable variable("PATH", path);
    const FlushRecorder output;
    std::string file = getFilePath();
    return {std::move(file), output.text()};
}

TEST(InstallLocation, IsTheLastEntryThatContainsItsName) {
    const struct {
        const char* path;
        const char* file;
        const char* printed;
    } cases[] = {
        // The last ten characters are cut.
        {R"(C:\apps\tarn\bin\x64\rel)", R"(C:\apps\tarn\bcove//skein//SkeinStore//kelplib//tools_configuration.txt)",
         "tarn location: C:\\apps\\tarn\\bin\\x64\\rel\n~"},
        {R"(C:\apps\tarn\bin\rel64\)", R"(C:\apps\tarn\cove//skein//SkeinStore//kelplib//tools_configuration.txt)",
         "tarn location: C:\\apps\\tarn\\bin\\rel64\\\n~"},
        {"/opt/tarn/bin", "/opcove//skein//SkeinStore//kelplib//tools_configuration.txt",
         "tarn location: /opt/tarn/bin\n~"},
        {"0123456tarn", "0cove//skein//SkeinStore//kelplib//tools_configuration.txt", "tarn location: 0123456tarn\n~"},
        {"012345tarn", "cove//skein//SkeinStore//kelplib//tools_configuration.txt", "tarn location: 012345tarn\n~"},
        // A shorter entry is not cut.
        {"01234tarn", "01234tarncove//skein//SkeinStore//kelplib//tools_configuration.txt",
         "tarn location: 01234tarn\n~"},
        {"C:\\tarn", "C:\\tarncove//skein//SkeinStore//kelplib//tools_configuration.txt", "tarn location: C:\\tarn\n~"},
        {"tarn", "tarncove//skein//SkeinStore//kelplib//tools_configuration.txt", "tarn location: tarn\n~"},
        // The name may be anywhere in an entry.
        {"/opt/starneck/tools", "/opt/starcove//skein//SkeinStore//kelplib//tools_configuration.txt",
         "tarn location: /opt/starneck/tools\n~"},
        {R"(C:\bin;"C:\tarn\bin" ;D:\bin)", R"("C:\cove//skein//SkeinStore//kelplib//tools_configuration.txt)",
         "tarn location: \"C:\\tarn\\bin\" \n~"},
        {";;/opt/tarn/;;", "cove//skein//SkeinStore//kelplib//tools_configuration.txt", "tarn location: /opt/tarn/\n~"},
        // The last of several entries counts; all are printed.
        {R"(C:\tarn\one\bin\rel;C:\bin;D:\tarn)", "D:\\tarncove//skein//SkeinStore//kelplib//tools_configuration.txt",
         "tarn location: C:\\tarn\\one\\bin\\rel\n~tarn location: D:\\tarn\n~"},
        {R"(D:\tarn;C:\tarn\one\bin\rel)", R"(C:\tarn\ocove//skein//SkeinStore//kelplib//tools_configuration.txt)",
         "tarn location: D:\\tarn\n~tarn location: C:\\tarn\\one\\bin\\rel\n~"},
        {"tarn;x;tarn", "tarncove//skein//SkeinStore//kelplib//tools_configuration.txt",
         "tarn location: tarn\n~tarn location: tarn\n~"},
        // A semicolon is the separator on every system.
        {"/usr/bin:/opt/tarn/bin:/bin", "/usr/bin:/opt/tarcove//skein//SkeinStore//kelplib//tools_configuration.txt",
         "tarn location: /usr/bin:/opt/tarn/bin:/bin\n~"},
        // No entry contains the name.
        {R"(C:\TARN\bin)", "", "Impossible to find tarn location\n~"},
        {R"(C:\Tarn)", "", "Impossible to find tarn location\n~"},
        {"tar;n", "", "Impossible to find tarn location\n~"},
        {"tar", "", "Impossible to find tarn location\n~"},
        {"abc;x", "", "Impossible to find tarn location\n~"},
        {";", "", "Impossible to find tarn location\n~"},
        {"/usr/bin:/ta/rn", "", "Impossible to find tarn location\n~"},
        {R"(C:\bin;D:\tools\bin)", "", "Impossible to find tarn location\n~"},
    };
    for (const auto& c : cases) {
        const Found found = findWithPath(c.path);
        EXPECT_EQ(found.file, c.file) << shown(c.path);
        EXPECT_EQ(found.printed, c.printed) << shown(c.path);
    }
}

TEST(InstallLocation, IsNotFoundInAnEmptyPath) {
    const ScopedVariable variable("PATH", "");
    if (std::getenv("PATH") == nullptr) {
        GTEST_SKIP() << "this system has no empty variables";
    }
    const Found found = findWithPath("");
    EXPECT_EQ(found.file, "");
    EXPECT_EQ(found.printed, "Impossible to find tarn location\n~");
}

TEST(InstallLocation, NeedsPath) {
    const Found found = findWithPath(std::nullopt);
    EXPECT_EQ(found.file, "");
    EXPECT_EQ(found.printed, "Impossible to read environment variable PATH\n~");
}

TEST(InstallLocation, ForgetsEarlierCalls) {
    EXPECT_NE(findWithPath("C:\\tarn").file, "");
    EXPECT_EQ(findWithPath("C:\\bin").file, "");
}

}  // namespace
