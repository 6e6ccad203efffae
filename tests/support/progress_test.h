#ifndef KELPLIB_TESTS_PROGRESS_TEST_H
#define KELPLIB_TESTS_PROGRESS_TEST_H

#include <gtest/gtest.h>
#include <kelplib/KelpProgress.h>

#include <array>
#include <cstring>
#include <string>
#include <utility>

#include "fake_platform.h"
#include "scoped_variable.h"
#include "standard_output_file.h"

/// Returns all bytes of a display.
inline std::array<char, sizeof(KELP_GlobalProgressData)> bytesOf(const KELP_GlobalProgressData& display) {
    std::array<char, sizeof display> bytes{};
    std::memcpy(bytes.data(), &display, bytes.size());
    return bytes;
}

/// Starts every test with the display and the platform of a new process, without MSYSTEM.
class ProgressTest : public testing::Test {
protected:
    ProgressTest() : withoutMsystem("MSYSTEM", std::nullopt) {
        KELP_GlobalProgress = KELP_GlobalProgressData();
    }

    ~ProgressTest() override {
        KELP_GlobalProgress = KELP_GlobalProgressData();
        fake_platform::reset();
    }

    static void clock(double seconds) {
        fake_platform::state().seconds = seconds;
    }

    /// Returns what has reached standard output when `draw` returns. `draw` must not check anything: a failed check prints
    /// to standard output.
    template <class Draw>
    static std::string written(Draw draw) {
        StandardOutputFile output;
        draw();
        return output.arrived();
    }

    /// The result of a drawing call, and its output.
    using Drawn = std::pair<int, std::string>;

    static Drawn drawBar(double value, double total, int width, const char* label, double startTime) {
        int result = 0;
        std::string text = written([&] { result = KELP_progress(value, total, width, label, startTime); });
        return {result, std::move(text)};
    }

    static Drawn drawDisplay(double value) {
        int result = 0;
        std::string text = written([&] { result = KELP_progress_global(value); });
        return {result, std::move(text)};
    }

private:
    ScopedVariable withoutMsystem;
};

#endif
