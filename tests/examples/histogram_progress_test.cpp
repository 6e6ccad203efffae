#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "../../examples/histogram/count.h"
#include "arguments.h"
#include "fake_platform.h"
#include "progress_test.h"

namespace {

/// A file that the tool reads in two pieces of 65536 bytes.
class HistogramProgress : public ProgressTest {
protected:
    HistogramProgress() {
        request.file = "histogram_progress_test.txt";
        std::ofstream file(request.file, std::ios::binary);
        for (int i = 0; i < 65536; ++i) {
            file << "1 ";
        }
    }

    ~HistogramProgress() override {
        std::remove(request.file.c_str());
    }

    /// What is drawn by so many passes out of two, the time jumping ahead before each.
    std::string drawnBy(int passes) {
        return written([&] {
            Arguments line{"histogram"};
            CommandLineTool tool(line.argc(), line.argv(), "");
            clock(1000.0);
            common::Progress progress(tool, "counting ", 262144);
            clock(1000.3);
            EXPECT_EQ(histogram::findExtent(request, progress).highest, 1.0);
            if (passes == 2) {
                clock(1000.5);
                EXPECT_EQ(histogram::count(request, {0.0, 2.0}, progress).inside, 65536U);
                progress.finish();
            }
        });
    }

    const ScopedVariable terminal{"MSYSTEM", "MSYS"};
    histogram::Request request;
};

TEST_F(HistogramProgress, CountsEveryPieceOfBothPasses) {
    EXPECT_EQ(drawnBy(1), "counting  25.0% ##########                           | time left: 0 secs  \r\n");
    EXPECT_EQ(drawnBy(2),
              "counting  25.0% ##########                           | time left: 0 secs  \r"
              "counting  75.0% ############################         | time left: 0 secs  \r"
              "counting 100.0% ###################################### done in: 0.5 secs  \r\n");
}

}  // namespace
