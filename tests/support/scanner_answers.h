#ifndef KELPLIB_TESTS_SCANNER_ANSWERS_H
#define KELPLIB_TESTS_SCANNER_ANSWERS_H

#include <kelplib/Kelp.h>

#include <stdexcept>

#include "arguments.h"
#include "captured_output.h"
#include "flag_scanner_model.h"

/// The scanners' results, values and printed texts, as one text in the form of flag_scanner_model.
namespace scanner_answers {

using flag_scanner_model::answer;
using flag_scanner_model::joined;
using flag_scanner_model::Strings;

inline std::string string(Arguments& line, const std::string& flag, int start) {
    std::string value = "before";
    try {
        const int position = Kelp::getStringFlag(line.argc(), line.argv(), flag, value, start);
        return answer(position, value);
    } catch (const std::out_of_range&) {
        return "out of range";
    }
}

inline std::string strings(Arguments& line, const std::string& flag) {
    Strings values{"before"};
    try {
        const int count = Kelp::getMultiStringFlag(line.argc(), line.argv(), flag, values);
        return answer(count, joined(values));
    } catch (const std::out_of_range&) {
        return "out of range";
    }
}

inline std::string integer(Arguments& line, const std::string& flag, int start) {
    const CapturedOutput output;
    int value = 77;
    try {
        const int position = Kelp::getIntFlag(line.argc(), line.argv(), flag, value, start);
        return answer(position, std::to_string(value)) + output.text();
    } catch (const std::logic_error&) {
        return "no token";
    }
}

template <class T>
inline std::string range(Arguments& line, int (*scan)(int, char**, std::array<T, 2>&)) {
    std::array<T, 2> limits{77, 88};
    const int result = scan(line.argc(), line.argv(), limits);
    return answer(
        result, std::to_string(static_cast<double>(limits[0])) + ":" + std::to_string(static_cast<double>(limits[1])));
}

inline std::string positional(Arguments& line) {
    return Kelp::getFirstFileName(line.argc(), line.argv()) + ", " +
           joined(Kelp::getAllArguments(line.argc(), line.argv()));
}

}  // namespace scanner_answers

#endif
