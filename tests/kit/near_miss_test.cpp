#include "near_miss.h"

#include <gtest/gtest.h>

namespace {

struct Row {
    const char* flag;
    const char* form;
};

TEST(NearMiss, FindsTheFormThatWasMeant) {
    const std::vector<std::string> forms{
        "-n", "--number", "-l", "--line", "-L2", "--lint", "-o", "--output", "", "-", "--t\xC3\xA9l\xC3\xA9"};
    const Row rows[] = {{"--number", "--number"},
                        {"--NUMBER", "--number"},
                        {"-number", "--number"},
                        {"number", "--number"},
                        {"--n", "-n"},
                        {"--nu", "--number"},
                        {"--numb", "--number"},
                        {"--numbr", "--number"},
                        {"--nubmer", "--number"},
                        {"--numberr", "--number"},
                        {"--numbexx", "--number"},
                        {"--nxmbex", "--number"},
                        {"--xxxber", ""},
                        {"--numberxxx", ""},
                        {"--lines", "--line"},
                        {"--lin", ""},
                        {"--linx", ""},
                        {"--lien", "--line"},
                        {"--ine", "--line"},
                        {"--ilne", "--line"},
                        {"--liex", ""},
                        {"--lixn", ""},
                        {"--x", ""},
                        {"-x", ""},
                        {"-nx", ""},
                        {"--", ""},
                        {"-", ""},
                        {"", ""},
                        {"--ouptut", "--output"},
                        {"--outptu", "--output"},
                        {"--tuptuo", ""},
                        {"--telé", "--t\xC3\xA9l\xC3\xA9"},
                        {"--out-put", "--output"}};
    for (const Row& row : rows) {
        EXPECT_EQ(Kelpkit::nearMiss(row.flag, forms), row.form) << row.flag;
    }
}

TEST(NearMiss, TakesEqualFormsForOne) {
    EXPECT_EQ(Kelpkit::nearMiss("--hel", {"--help", "-h", "--help"}), "--help");
}

TEST(NearMiss, IsAsFarFromAShortenedNameAsFromASlip) {
    EXPECT_EQ(Kelpkit::nearMiss("--num", {"--number", "--nun"}), "");
}

TEST(NearMiss, EndsSoonForLongNames) {
    EXPECT_EQ(Kelpkit::nearMiss("--" + std::string(1'000'000, 'x'), {"-x", "--xx"}), "");
}

TEST(NearMiss, FindsNothingWithoutForms) {
    EXPECT_EQ(Kelpkit::nearMiss("--number", {}), "");
    EXPECT_EQ(Kelpkit::nearMiss("--", {"--number"}), "");
    EXPECT_EQ(Kelpkit::nearMiss("-n", {"", "--"}), "");
}

}  // namespace
