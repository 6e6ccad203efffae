#include <cstdlib>
#include <cstring>
#include <string>

#include "progress_test.h"

namespace {

class GlobalProgress : public ProgressTest {};

TEST_F(GlobalProgress, IsSetUpFieldByField) {
    clock(1234.5);
    KELP_GlobalProgress.last_blink = 99.0;
    int result = 7;
    EXPECT_EQ(written([&] { result = KELP_progress_global_init(200.0, 20, "Reading", 1); }), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(KELP_GlobalProgress.total, 200.0);
    EXPECT_EQ(KELP_GlobalProgress.width, 20);
    EXPECT_STREQ(KELP_GlobalProgress.text, "Reading");
    EXPECT_EQ(KELP_GlobalProgress.start_time, 1234.5);
    EXPECT_EQ(KELP_GlobalProgress.smile, 1);
    EXPECT_EQ(KELP_GlobalProgress.terminal_env, nullptr);
    EXPECT_EQ(KELP_GlobalProgress.last_blink, 99.0) << "init does not change the last blink";
}

TEST_F(GlobalProgress, CanBeSetUpAgain) {
    KELP_progress_global_init(200.0, 20, "A longer label", 1);
    clock(2000.0);
    EXPECT_EQ(KELP_progress_global_init(5.0, -3, "b", 0), 0);
    EXPECT_EQ(KELP_GlobalProgress.total, 5.0);
    EXPECT_EQ(KELP_GlobalProgress.width, -3);
    EXPECT_STREQ(KELP_GlobalProgress.text, "b");
    EXPECT_EQ(KELP_GlobalProgress.start_time, 2000.0);
    EXPECT_EQ(KELP_GlobalProgress.smile, 0);
}

TEST_F(GlobalProgress, KeepsItsModeUnlessMsystemIsSet) {
    for (const int smile : {0, 1, 2, -1, 2147483647}) {
        KELP_progress_global_init(1.0, 1, "", smile);
        EXPECT_EQ(KELP_GlobalProgress.smile, smile);
    }
    for (const char* value : {"MINGW64", "MSYS", "0", " "}) {
        const ScopedVariable msystem("MSYSTEM", value);
        for (const int smile : {0, 1, 2, -1}) {
            KELP_progress_global_init(1.0, 1, "", smile);
            EXPECT_EQ(KELP_GlobalProgress.smile, 0) << smile << " with MSYSTEM=" << value;
            EXPECT_EQ(KELP_GlobalProgress.terminal_env, std::getenv("MSYSTEM"));
            EXPECT_STREQ(KELP_GlobalProgress.terminal_env, value);
        }
    }
    KELP_progress_global_init(1.0, 1, "", 1);
    EXPECT_EQ(KELP_GlobalProgress.terminal_env, nullptr) << "left from an earlier init";
    EXPECT_EQ(KELP_GlobalProgress.smile, 1);
}

TEST_F(GlobalProgress, IgnoresVariablesWithLongerNames) {
    const ScopedVariable longer("MSYSTEM_PREFIX", "/mingw64");
    KELP_progress_global_init(1.0, 1, "", 1);
    EXPECT_EQ(KELP_GlobalProgress.smile, 1);
}

TEST_F(GlobalProgress, KeepsTheFirst127CharactersOfItsLabel) {
    std::string text;
    for (int i = 0; i < 300; ++i) {
        text += static_cast<char>('!' + i % 89);
    }
    const struct {
        std::size_t length;
        std::size_t kept;
    } cases[] = {{0, 0}, {1, 1}, {126, 126}, {127, 127}, {128, 127}, {129, 127}, {300, 127}};
    for (const auto& c : cases) {
        std::memset(KELP_GlobalProgress.text, '~', sizeof KELP_GlobalProgress.text);
        KELP_progress_global_init(1.0, 1, text.substr(0, c.length).c_str(), 0);
        const std::string field(KELP_GlobalProgress.text, sizeof KELP_GlobalProgress.text);
        EXPECT_EQ(field.substr(0, c.kept + 1), text.substr(0, c.kept) + '\0') << c.length;
    }
}

TEST_F(GlobalProgress, TreatsANullLabelAsEmpty) {
    KELP_progress_global_init(1.0, 1, "old", 0);
    KELP_progress_global_init(1.0, 1, nullptr, 0);
    EXPECT_STREQ(KELP_GlobalProgress.text, "");
}

TEST_F(GlobalProgress, AcceptsItsOwnLabel) {
    KELP_progress_global_init(1.0, 1, "abcdef", 0);
    KELP_progress_global_init(2.0, 1, KELP_GlobalProgress.text, 0);
    EXPECT_STREQ(KELP_GlobalProgress.text, "abcdef");
    KELP_progress_global_init(2.0, 1, KELP_GlobalProgress.text + 2, 0);
    EXPECT_STREQ(KELP_GlobalProgress.text, "cdef");
}

TEST_F(GlobalProgress, DrawsTheBarWithTheTimeSinceSetUp) {
    KELP_progress_global_init(200.0, 20, "Reading", 0);
    clock(1010.0);
    EXPECT_EQ(drawDisplay(100.0), Drawn(0, "Reading 50.0% ##########         | time left: 8 secs  \r"));
    clock(1090.0);
    EXPECT_EQ(drawDisplay(200.0), Drawn(0, "Reading100.0% ##################### done in: 1.5 mins  \r"));
}

TEST_F(GlobalProgress, DrawsWithTheCurrentSettings) {
    KELP_progress_global_init(200.0, 20, "Reading", 0);
    KELP_progress_global_set_text("Writing", 20);
    KELP_GlobalProgress.total = 4.0;
    KELP_GlobalProgress.width = 8;
    KELP_GlobalProgress.start_time = 0.0;
    EXPECT_EQ(drawDisplay(1.0), Drawn(0, "Writing 25.0% ##     |\r"));
}

TEST_F(GlobalProgress, DrawsTheFaceForOneAndTheBarForAnythingElse) {
    KELP_progress_global_init(2.0, 4, "x", 1);
    const Drawn face = drawDisplay(1.0);
    EXPECT_EQ(face.first, 141);
    EXPECT_EQ(face.second.substr(0, 11), "     _____\n");
    for (const int smile : {0, 2, -1, 257}) {
        KELP_GlobalProgress.smile = smile;
        EXPECT_EQ(drawDisplay(1.0), Drawn(0, "x 50.0% ## | time left: 0 secs  \r")) << smile;
    }
    const ScopedVariable msystem("MSYSTEM", "MSYS");
    KELP_progress_global_init(2.0, 4, "x", 1);
    EXPECT_EQ(drawDisplay(1.0), Drawn(0, "x 50.0% ## | time left: 0 secs  \r"));
}

TEST_F(GlobalProgress, DoesNotReadPastALabelThatFillsItsField) {
    const std::string label = std::string(61, 'a') + "..." + std::string(64, 'z');
    KELP_progress_global_init(2.0, 4, "", 0);
    KELP_progress_global_set_text((std::string(90, 'a') + std::string(90, 'z')).c_str(), 128);
    // The bytes after the field look like text, too.
    std::memcpy(&KELP_GlobalProgress.start_time, "AAAAAAAA", sizeof KELP_GlobalProgress.start_time);
    clock(KELP_GlobalProgress.start_time + 1.0);
    EXPECT_EQ(drawDisplay(1.0), Drawn(0, label + " 50.0% ## | time left: 0 secs  \r"));
    EXPECT_EQ(drawDisplay(2.0), Drawn(0, label + "100.0% ##### done in: 1.0 secs  \r"));

    KELP_GlobalProgress.smile = 1;
    for (const double value : {1.0, 2.0}) {
        const std::string frame = drawDisplay(value).second;
        EXPECT_EQ(frame.substr(11, frame.find('\n', 11) - 11), "    /     \\         " + label) << value;
    }
}

}  // namespace
