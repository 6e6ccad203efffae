#ifndef KELPLIB_TESTS_CAPTURED_OUTPUT_H
#define KELPLIB_TESTS_CAPTURED_OUTPUT_H

#include <iostream>
#include <sstream>
#include <string>

/// Captures the output of std::cout during its lifetime.
class CapturedOutput {
public:
    CapturedOutput() : original(std::cout.rdbuf(captured.rdbuf())) {}

    ~CapturedOutput() {
        std::cout.rdbuf(original);
    }

    CapturedOutput(const CapturedOutput&) = delete;
    CapturedOutput& operator=(const CapturedOutput&) = delete;

    std::string text() const {
        return captured.str();
    }

private:
    std::ostringstream captured;
    std::streambuf* original;
};

#endif
