#include <string>

#include "allocation_count.h"
#include "progress_test.h"

namespace {

/// Counts the calls of operator new that drawing makes. The fake platform reserves the memory for its records first.
class DrawingAllocations : public ProgressTest {
protected:
    DrawingAllocations() {
        fake_platform::state().rewoundLines.reserve(100);
        fake_platform::state().sleepsMilliseconds.reserve(100);
    }

    template <class Call>
    static std::size_t allocationsOf(Call call) {
        const StandardOutputFile output;
        const std::size_t before = allocationCount();
        call();
        return allocationCount() - before;
    }
};

TEST_F(DrawingAllocations, AreCounted) {
    // Explicit calls: a compiler may omit a new expression, and the allocation of a string is not counted where the standard
    // library is a DLL with its own operator new.
    EXPECT_EQ(allocationsOf([] { ::operator delete(::operator new(1)); }), 1U);
}

TEST_F(DrawingAllocations, AreNoneForTheBar) {
    const std::string longLabel(600, 'x');
    EXPECT_EQ(allocationsOf([&] {
                  KELP_progress(1.0, 2.0, 20, "label", 1000.0);
                  KELP_progress(2.0, 2.0, 20, "label", 1000.0);
                  KELP_progress(1.0, 0.0, 20, "label", 1000.0);
                  KELP_progress(1.0, 2.0, 2147483647, longLabel.c_str(), 0.0);
              }),
              0U);
}

TEST_F(DrawingAllocations, AreNoneForTheProcessWideDisplay) {
    const std::string longLabel(600, 'x');
    for (const int smile : {0, 1}) {
        EXPECT_EQ(allocationsOf([&] {
                      KELP_progress_global_init(2.0, 20, longLabel.c_str(), smile);
                      KELP_progress_global_set_text(longLabel.c_str(), 128);
                      KELP_progress_global(1.0);
                      KELP_progress_global(1.0);
                      KELP_progress_global(2.0);
                  }),
                  0U)
            << smile;
    }
    EXPECT_EQ(fake_platform::state().sleepsMilliseconds, (std::vector<unsigned int>{75, 150, 150}));
}

TEST_F(DrawingAllocations, AreNoneForAFaceThatDoesNotFit) {
    EXPECT_EQ(allocationsOf([&] {
                  KELP_progress_global_init(2.0, 2147483647, "label", 1);
                  KELP_progress_global(1.0);
                  KELP_GlobalProgress.total = 0.4;
                  KELP_progress_global(0.1);
              }),
              0U);
}

}  // namespace
