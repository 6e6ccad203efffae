#include <kelplib/CommandLineTool.h>

#include <gtest/gtest.h>

#include "arguments.h"

namespace {

/// This program has to fail, though nothing is expected here: the tool refuses the flag and ends the process.
TEST(EarlyEnd, IsNoSuccess) {
    Arguments line{"tool", "-x"};
    const CommandLineTool tool(line.argc(), line.argv(), "");
}

}  // namespace
