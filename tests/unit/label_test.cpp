#include "console/label.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <limits>
#include <string>

#include "progress_test.h"

namespace {

using Field = std::array<char, 128>;

constexpr std::size_t most = std::numeric_limits<std::size_t>::max();

Field field() {
    Field bytes{};
    std::memcpy(bytes.data(), KELP_GlobalProgress.text, bytes.size());
    return bytes;
}

/// Returns a field with the text, filled up with zeros.
Field fieldWith(const std::string& text) {
    Field bytes{};
    text.copy(bytes.data(), bytes.size());
    return bytes;
}

/// A display filled with "~", as if an earlier label had filled it.
class Label : public testing::Test {
protected:
    Label() {
        fill();
    }
    ~Label() override {
        KELP_GlobalProgress = KELP_GlobalProgressData();
    }

    static void fill() {
        std::memset(&KELP_GlobalProgress, '~', sizeof KELP_GlobalProgress);
    }
};

TEST_F(Label, IsShortenedFromItsMiddle) {
    const struct {
        const char* text;
        std::size_t maxLength;
        const char* expected;
    } cases[] = {
        {"abcdefghijklmnopqrstuvwxyz0123", 20, "abcdefg...uvwxyz0123"},
        {"abcdefghijklmnopqrstuvwxyz0123", 21, "abcdefg...uvwxyz0123"},
        {"abcdefghijklmnopqrstuvwxyz0123", 29, "abcdefghijk...qrstuvwxyz0123"},
        {"abcdefghijklmnopqrstuvwxyz0123", 30, "abcdefghijkl...pqrstuvwxyz0123"},
        {"abcdefghijklmnopqrstuvwxyz0123", 31, "abcdefghijklmnopqrstuvwxyz0123"},
        {"abcdefghijklmnopqrstuvwxyz0123", 1000, "abcdefghijklmnopqrstuvwxyz0123"},
        {"abcdefghijklmnopqrstuvwxyz0123", most, "abcdefghijklmnopqrstuvwxyz0123"},
        {"abcdefghijklmnopqrstuvwxyz0123", 8, "a...0123"},
        {"abcdefghijklmnopqrstuvwxyz0123", 7, "...123"},
        {"abcdefghijklmnopqrstuvwxyz0123", 6, "...123"},
        {"abcdefghijklmnopqrstuvwxyz0123", 5, "...123"},
        {"abcdefghijklmnopqrstuvwxyz0123", 0, "...123"},
        {"abcdef", 3, "...def"},
        {"abcdef", 6, "...def"},
        {"abcdef", 7, "abcdef"},
        {"abcdefg", 7, "...efg"},
        {"abcde", 0, "abcde"},
        {"", 0, ""},
        {"", most, ""},
    };
    for (const auto& c : cases) {
        fill();
        KELP_progress_global_set_text(c.text, c.maxLength);
        EXPECT_EQ(field(), fieldWith(c.expected)) << c.text << " in " << c.maxLength;
    }
}

/// Shortens a label step by step.
std::string shortened(const std::string& text, std::size_t maxLength) {
    std::size_t n = maxLength;
    if (n < 6) {
        n = 6;
    }
    if (n > 128) {
        n = 128;
    }
    if (text.size() < n) {
        return text;
    }
    const std::size_t h = n / 2;
    std::string label;
    for (std::size_t i = 0; i < h - 3; ++i) {
        label += text[i];
    }
    label += "...";
    for (std::size_t i = text.size() - h; i < text.size(); ++i) {
        label += text[i];
    }
    return label;
}

TEST_F(Label, IsShortenedByTheRuleForEveryLength) {
    std::string text;
    for (std::size_t length = 0; length <= 300 && !HasFailure(); ++length) {
        for (std::size_t i = 0; i <= 201; ++i) {
            const std::size_t maxLength = i == 201 ? most : i;
            fill();
            KELP_progress_global_set_text(text.c_str(), maxLength);
            EXPECT_EQ(field(), fieldWith(shortened(text, maxLength))) << length << " characters in " << maxLength;
        }
        text += static_cast<char>('!' + length % 89);
    }
}

TEST_F(Label, FillsItsFieldWithoutATerminator) {
    const std::string text = std::string(90, 'a') + std::string(90, 'z');
    for (const std::size_t maxLength : {std::size_t{128}, std::size_t{129}, std::size_t{1000}, most}) {
        fill();
        KELP_progress_global_set_text(text.c_str(), maxLength);
        EXPECT_EQ(field(), fieldWith(std::string(61, 'a') + "..." + std::string(64, 'z'))) << maxLength;
    }
    KELP_progress_global_set_text(text.c_str(), 127);
    EXPECT_EQ(field(), fieldWith(std::string(60, 'a') + "..." + std::string(63, 'z')));
    KELP_progress_global_set_text(std::string(127, 'b').c_str(), 128);
    EXPECT_EQ(field(), fieldWith(std::string(127, 'b')));
}

TEST_F(Label, ChangesOnlyItsField) {
    KELP_progress_global_set_text("abc", 20);
    EXPECT_EQ(field(), fieldWith("abc"));
    std::memset(KELP_GlobalProgress.text, '~', sizeof KELP_GlobalProgress.text);
    const auto bytes = bytesOf(KELP_GlobalProgress);
    EXPECT_EQ(std::string(bytes.data(), bytes.size()), std::string(bytes.size(), '~'));
}

TEST_F(Label, EndsAtTheFirstNul) {
    KELP_progress_global_set_text("abc\0defghijkl", 6);
    EXPECT_EQ(field(), fieldWith("abc"));
}

TEST_F(Label, IsEmptyForANullText) {
    KELP_progress_global_set_text(nullptr, 20);
    EXPECT_EQ(field(), Field{});
}

TEST_F(Label, IsClearedBeforeItsNewTextIsRead) {
    KELP_progress_global_set_text("abcdefghij", 20);
    KELP_progress_global_set_text(KELP_GlobalProgress.text, 20);
    EXPECT_EQ(field(), Field{});
}

TEST_F(Label, IsReadUpToItsTerminatorOrItsEnd) {
    const std::string letters(128, 'x');
    for (std::size_t length = 0; length <= 128; ++length) {
        char bytes[128];
        std::memset(bytes, 'x', sizeof bytes);
        if (length < sizeof bytes) {
            bytes[length] = '\0';
        }
        EXPECT_EQ(Kelp::labelText(bytes), letters.substr(0, length)) << length;
    }
}

}  // namespace
