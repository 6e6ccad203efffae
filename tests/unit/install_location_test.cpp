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

struct Case {
    const char* path;
    const char* file;
    const char* printed;
};

template <std::size_t count>
void expectFound(const Case (&cases)[count]) {
    for (const Case& each : cases) {
        const Found found = findWithPath(each.path);
        EXPECT_EQ(found.file, each.file) << shown(each.path);
        EXPECT_EQ(found.printed, each.printed) << shown(each.path);
    }
}

TEST(InstallLocation, LosesTheLastTenCharacters) {
    expectFound(
        {{R"(C:\apps\tarn\bin\x64\rel)", R"(C:\apps\tarn\bcove//skein//SkeinStore//kelplib//tools_configuration.txt)",
          "tarn location: C:\\apps\\tarn\\bin\\x64\\rel\n~"},
         {R"(C:\apps\tarn\bin\rel64\)", R"(C:\apps\tarn\cove//skein//SkeinStore//kelplib//tools_configuration.txt)",
          "tarn location: C:\\apps\\tarn\\bin\\rel64\\\n~"},
         {"/opt/tarn/bin", "/opcove//skein//SkeinStore//kelplib//tools_configuration.txt",
          "tarn location: /opt/tarn/bin\n~"},
         {"0123456tarn", "0cove//skein//SkeinStore//kelplib//tools_configuration.txt", "tarn location: 0123456tarn\n~"},
         {"012345tarn", "cove//skein//SkeinStore//kelplib//tools_configuration.txt", "tarn location: 012345tarn\n~"}});
}

TEST(InstallLocation, OfFewerThanTenCharactersStaysWhole) {
    expectFound({{"01234tarn", "01234tarncove//skein//SkeinStore//kelplib//tools_configuration.txt",
                  "tarn location: 01234tarn\n~"},
                 {"C:\\tarn", "C:\\tarncove//skein//SkeinStore//kelplib//tools_configuration.txt",
                  "tarn location: C:\\tarn\n~"},
                 {"tarn", "tarncove//skein//SkeinStore//kelplib//tools_configuration.txt", "tarn location: tarn\n~"}});
}

TEST(InstallLocation, IsAnyEntryWithItsNameInside) {
    expectFound({{"/opt/starneck/tools", "/opt/starcove//skein//SkeinStore//kelplib//tools_configuration.txt",
                  "tarn location: /opt/starneck/tools\n~"},
                 {R"(C:\bin;"C:\tarn\bin" ;D:\bin)", R"("C:\cove//skein//SkeinStore//kelplib//tools_configuration.txt)",
                  "tarn location: \"C:\\tarn\\bin\" \n~"},
                 {";;/opt/tarn/;;", "cove//skein//SkeinStore//kelplib//tools_configuration.txt",
                  "tarn location: /opt/tarn/\n~"}});
}

TEST(InstallLocation, IsTheLastOfSeveral) {
    expectFound(
        {{R"(C:\tarn\one\bin\rel;C:\bin;D:\tarn)", "D:\\tarncove//skein//SkeinStore//kelplib//tools_configuration.txt",
          "tarn location: C:\\tarn\\one\\bin\\rel\n~tarn location: D:\\tarn\n~"},
         {R"(D:\tarn;C:\tarn\one\bin\rel)", R"(C:\tarn\ocove//skein//SkeinStore//kelplib//tools_configuration.txt)",
          "tarn location: D:\\tarn\n~tarn location: C:\\tarn\\one\\bin\\rel\n~"},
         {"tarn;x;tarn", "tarncove//skein//SkeinStore//kelplib//tools_configuration.txt",
          "tarn location: tarn\n~tarn location: tarn\n~"}});
}

TEST(InstallLocation, IsSeparatedBySemicolonsOnEverySystem) {
    expectFound(
        {{"/usr/bin:/opt/tarn/bin:/bin", "/usr/bin:/opt/tarcove//skein//SkeinStore//kelplib//tools_configuration.txt",
          "tarn location: /usr/bin:/opt/tarn/bin:/bin\n~"}});
}

TEST(InstallLocation, IsNotFoundWithoutItsName) {
    for (const char* const path :
         {R"(C:\TARN\bin)", R"(C:\Tarn)", "tar;n", "tar", "abc;x", ";", "/usr/bin:/ta/rn", R"(C:\bin;D:\tools\bin)"}) {
        expectFound({{path, "", "Impossible to find tarn location\n~"}});
    }
}

TEST(InstallLocation, IsNotFoundInAnEmptyPath) {
    const ScopedVariable variable("PATH", "");
    if (std::getenv("PATH") == nullptr) {
        GTEST_SKIP() << "no variable can be empty here";
    }
    expectFound({{"", "", "Impossible to find tarn location\n~"}});
}

TEST(InstallLocation, NeedsPath) {
    const Found found = findWithPath(std::nullopt);
    EXPECT_EQ(found.file, "");
    EXPECT_EQ(found.printed, "Impossible to read environment variable PATH\n~");
}

TEST(InstallLocation, KeepsNothingOfEarlierCalls) {
    EXPECT_NE(findWithPath("C:\\tarn").file, "");
    EXPECT_EQ(findWithPath("C:\\bin").file, "");
}

}  // namespace
