#include "numbers.h"

#include <cstdlib>

namespace common {

std::optional<double> decimalNumber(const std::string& text) {
    if (text.empty() || text.find_first_not_of("0123456789+-.eE") != std::string::npos) {
        return std::nullopt;
    }
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    if (end != text.c_str() + text.size()) {
        return std::nullopt;
    }
    return number;
}

bool isDigits(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

}  // namespace common
