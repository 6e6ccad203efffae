#include <kelplib/CommandLineTool.h>

#include <gtest/gtest.h>

#include "arguments.h"

namespace {

/// The tool refuses the flag and ends the process with exit status 0. test_main.cpp has to turn that into a failure.
TEST(EarlyEnd, IsAFailure) {
    Arguments line{"tool", "-x"};
    const CommandLineTool tool(line.argc(), line.argv(), "");
}

}  // namespace
