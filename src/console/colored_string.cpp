#include <kelplib/Kelp.h>

#include "util/escape_sequences.h"

std::string getColoredString(const std::string& text, const int& code) {
    std::string result = "\033[";
    result += std::to_string(code);
    result += 'm';
    result += text;
    result += Kelp::escape::reset;
    return result;
}
