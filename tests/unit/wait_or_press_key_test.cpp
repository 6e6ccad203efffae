#include <gtest/gtest.h>
#include <kelplib/Kelp.h>
#include <unistd.h>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <mutex>

#include "fake_keyboard.h"
#include "fake_platform.h"
#include "flush_recorder.h"

namespace {

using Sleeps = std::vector<unsigned int>;

class WaitOrPressKey : public ::testing::Test {
protected:
    ~WaitOrPressKey() override {
        fake_platform::reset();
    }

    /// Runs act in each sleep of the following calls, with the number of sleeps so far, the current one included.
    template <class Act>
    static void inEverySleep(Act act) {
        fake_platform::reset();
        fake_platform::state().onSleep = [act](unsigned int) { act(fake_platform::state().sleepsMilliseconds.size()); };
    }

    /// The sleeps of one call.
    static Sleeps sleepsOf(unsigned int seconds) {
        fake_platform::state().sleepsMilliseconds.clear();
        const FlushRecorder output;
        Kelp::waitOrPressKey(seconds, "");
        return fake_platform::state().sleepsMilliseconds;
    }

    FakeKeyboard keyboard;
};

TEST_F(WaitOrPressKey, SleepsTenTimesASecondAndTwiceMore) {
    EXPECT_EQ(sleepsOf(0), Sleeps(2, 100));
    EXPECT_EQ(sleepsOf(1), Sleeps(12, 100));
    EXPECT_EQ(sleepsOf(5), Sleeps(52, 100));
    keyboard.waitForReaders(3);
}

TEST_F(WaitOrPressKey, EndsAfterOneSleepWhenInputIsWaiting) {
    keyboard.press();
    inEverySleep([this](std::size_t) { keyboard.waitForEnds(1); });
    EXPECT_EQ(sleepsOf(5), Sleeps(1, 100));
}

TEST_F(WaitOrPressKey, EndsAfterOneSleepAtTheEndOfTheInput) {
    keyboard.close();
    inEverySleep([this](std::size_t) { keyboard.waitForEnds(1); });
    EXPECT_EQ(sleepsOf(5), Sleeps(1, 100));
}

TEST_F(WaitOrPressKey, EndsAfterTheSleepInWhichAKeyIsPressed) {
    const struct {
        unsigned int seconds;
        std::size_t sleeps;
    } cases[] = {{5, 1}, {5, 2}, {5, 51}, {5, 52}, {0, 1}, {0, 2}, {4294967295, 60}, {429496730, 60}};
    int ends = 0;
    for (const auto& each : cases) {
        ++ends;
        inEverySleep([&](std::size_t count) {
            if (count == each.sleeps) {
                keyboard.press();
                keyboard.waitForEnds(ends);
            }
        });
        EXPECT_EQ(sleepsOf(each.seconds), Sleeps(each.sleeps, 100)) << each.seconds << " seconds";
    }
}

TEST_F(WaitOrPressKey, LosesTheNextKeyToAnEarlierWaitThatTimedOut) {
    EXPECT_EQ(sleepsOf(0), Sleeps(2, 100));
    keyboard.waitForReaders(1);
    inEverySleep([this](std::size_t count) {
        keyboard.waitForReaders(2);
        if (count == 3 || count == 7) {
            keyboard.press();
            keyboard.waitForEnds(count == 3 ? 1 : 2);
        }
    });
    EXPECT_EQ(sleepsOf(5), Sleeps(7, 100));
}

TEST_F(WaitOrPressKey, PrintsItsTwoLinesAndFlushesThem) {
    const struct {
        unsigned int seconds;
        const char* message;
        const char* printed;
    } cases[] = {
        {5, "Look at the result.",
         "Look at the result.\n~    Press key to continue -- otherwise wait for 5 seconds.\n~"},
        {0, "", "\n~    Press key to continue -- otherwise wait for 0 seconds.\n~"},
        {1, "two\nlines", "two\nlines\n~    Press key to continue -- otherwise wait for 1 seconds.\n~"},
        {4294967295, "x", "x\n~    Press key to continue -- otherwise wait for 4294967295 seconds.\n~"},
    };
    int ends = 0;
    for (const auto& each : cases) {
        keyboard.press();
        ++ends;
        std::string printedBeforeTheSleep;
        const FlushRecorder output;
        inEverySleep([&](std::size_t) {
            printedBeforeTheSleep = output.text();
            keyboard.waitForEnds(ends);
        });
        Kelp::waitOrPressKey(each.seconds, each.message);
        EXPECT_EQ(printedBeforeTheSleep, each.printed);
        EXPECT_EQ(output.text(), each.printed);
    }
}

TEST_F(WaitOrPressKey, PrintsTheSecondsInDecimalForEveryStreamFormat) {
    keyboard.press();
    inEverySleep([this](std::size_t) { keyboard.waitForEnds(1); });
    const FlushRecorder output;
    const std::ios::fmtflags before = std::cout.setf(std::ios::hex | std::ios::showbase, std::ios::basefield);
    Kelp::waitOrPressKey(30, "x");
    std::cout.flags(before);
    EXPECT_EQ(output.text(), "x\n~    Press key to continue -- otherwise wait for 30 seconds.\n~");
}

TEST_F(WaitOrPressKey, EndsWhenTheEndOfTheInputThrows) {
    keyboard.close();
    std::cin.exceptions(std::ios::eofbit);
    inEverySleep([this](std::size_t) { keyboard.waitForEnds(1); });
    EXPECT_EQ(sleepsOf(5), Sleeps(1, 100));
    std::cin.exceptions(std::ios::goodbit);
}

// Without a buffer of the tool's own, std::cin reads through the C library.

/// Redirects standard input to a file of three characters.
class WaitOrPressKeyOfTheSystem : public ::testing::Test {
protected:
    WaitOrPressKeyOfTheSystem() {
        std::ofstream(path) << "abc";
        redirectInput(path);
        fake_platform::onRead() = [this](bool throughCLibrary) { waitForKey(throughCLibrary); };
        fake_platform::onThreadEnd() = [this] { change(ends); };
    }

    ~WaitOrPressKeyOfTheSystem() override {
        fake_platform::reset();
        fake_platform::onRead() = nullptr;
        fake_platform::onThreadEnd() = nullptr;
        std::cin.clear();
        rest();
        dup2(original, STDIN_FILENO);
        close(original);
        std::clearerr(stdin);
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
    }

    /// Reads the rest of the input.
    static std::string rest() {
        std::string text;
        for (int character = std::getchar(); character != EOF; character = std::getchar()) {
            text += static_cast<char>(character);
        }
        return text;
    }

    static std::size_t sleepsOf(unsigned int seconds) {
        fake_platform::state().sleepsMilliseconds.clear();
        const FlushRecorder output;
        Kelp::waitOrPressKey(seconds, "");
        return fake_platform::state().sleepsMilliseconds.size();
    }

    void change(int& number) {
        const std::lock_guard<std::mutex> lock(mutex);
        ++number;
        changed.notify_all();
    }

    void waitFor(const int& number, int count) {
        std::unique_lock<std::mutex> lock(mutex);
        changed.wait(lock, [&] { return number >= count; });
    }

    /// Gives readers that do not wait for their turn the time to show themselves.
    void expectOneWaitingReader() {
        std::unique_lock<std::mutex> lock(mutex);
        EXPECT_FALSE(changed.wait_for(lock, std::chrono::milliseconds(100), [&] { return waitingReaders > 1; }));
    }

    void waitForKey(bool throughCLibrary) {
        std::unique_lock<std::mutex> lock(mutex);
        EXPECT_TRUE(throughCLibrary);
        EXPECT_EQ(++waitingReaders, 1) << "two readers at the same time";
        const int turn = readers++;
        changed.notify_all();
        changed.wait(lock, [&] { return keys > turn; });
        --waitingReaders;
    }

    std::mutex mutex;
    std::condition_variable changed;
    int readers = 0;
    int waitingReaders = 0;
    int keys = 0;
    int ends = 0;

private:
    void redirectInput(const std::filesystem::path& file) const {
        std::FILE* const input = std::fopen(file.string().c_str(), "rb");
        if (input == nullptr || dup2(fileno(input), STDIN_FILENO) == -1 || std::fclose(input) != 0) {
            throw std::runtime_error("standard input cannot be redirected to " + file.string());
        }
    }

    std::filesystem::path path = std::filesystem::temp_directory_path() / ("kelplib-input-" + std::to_string(getpid()));
    int original = dup(STDIN_FILENO);
};

TEST_F(WaitOrPressKeyOfTheSystem, EndsAfterTheSleepInWhichAKeyIsPressed) {
    fake_platform::state().onSleep = [this](unsigned int) {
        if (fake_platform::state().sleepsMilliseconds.size() == 3) {
            change(keys);
            waitFor(ends, 1);
        }
    };
    EXPECT_EQ(sleepsOf(5), 3U);
    EXPECT_FALSE(std::cin.eof());
    EXPECT_EQ(rest(), "bc");
}

TEST_F(WaitOrPressKeyOfTheSystem, EndsAtTheEndOfTheInput) {
    EXPECT_EQ(rest(), "abc");
    change(keys);
    std::cin.exceptions(std::ios::eofbit);
    fake_platform::state().onSleep = [this](unsigned int) { waitFor(ends, 1); };
    EXPECT_EQ(sleepsOf(5), 1U);
    EXPECT_TRUE(std::cin.eof());
    std::cin.exceptions(std::ios::goodbit);
}

TEST_F(WaitOrPressKeyOfTheSystem, LosesTheFirstKeysToEarlierWaitsThatTimedOut) {
    EXPECT_EQ(sleepsOf(0), 2U);
    EXPECT_EQ(sleepsOf(0), 2U);
    fake_platform::state().onSleep = [this](unsigned int) {
        const auto count = static_cast<int>(fake_platform::state().sleepsMilliseconds.size());
        if (count == 4) {
            expectOneWaitingReader();
        }
        if (count >= 4) {
            change(keys);
            waitFor(ends, count - 3);
        }
    };
    EXPECT_EQ(sleepsOf(5), 6U);
    EXPECT_EQ(rest(), "");
}

struct Thrown {};

class ThrowingBuffer : public std::streambuf {
    int_type uflow() override {
        throw Thrown();
    }
};

TEST_F(WaitOrPressKeyOfTheSystem, EndsWhenABufferOfTheToolThrows) {
    ThrowingBuffer buffer;
    std::streambuf* const before = std::cin.rdbuf(&buffer);
    std::cin.exceptions(std::ios::badbit);
    fake_platform::state().onSleep = [this](unsigned int) { waitFor(ends, 1); };
    EXPECT_EQ(sleepsOf(5), 1U);
    std::cin.exceptions(std::ios::goodbit);
    std::cin.rdbuf(before);
}

}  // namespace
