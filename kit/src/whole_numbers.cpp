#include <string_view>

#include "whole_number_reading.h"

namespace Kelpkit {

namespace {

constexpr char digits[] = "0123456789";

/// Returns the text without its sign, if the type has such a sign.
std::string_view withoutSign(std::string_view text, bool isSigned) {
    const bool hasSign = !text.empty() && (text.front() == '+' || (isSigned && text.front() == '-'));
    return text.substr(hasSign ? 1 : 0);
}

bool hasMinus(const std::string& text) {
    return text.front() == '-';
}

/// Returns whether the number of these digits is at most `largest`.
bool isAtMost(std::string_view number, unsigned long long largest) {
    number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
    const std::string limit = std::to_string(largest);
    return number.size() < limit.size() || (number.size() == limit.size() && number <= limit);
}

}  // namespace

bool isWholeNumber(const std::string& text, bool isSigned, unsigned long long largest) {
    const std::string_view number = withoutSign(text, isSigned);
    return !number.empty() && number.find_first_not_of(digits) == std::string_view::npos &&
           isAtMost(number, hasMinus(text) ? largest + 1 : largest);
}

long long convertedMagnitude(const std::string& text) {
    const auto magnitude = libraryValue<unsigned long long>(std::string(withoutSign(text, true)));
    if (!hasMinus(text) || magnitude == 0) {
        return static_cast<long long>(magnitude);
    }
    return -1 - static_cast<long long>(magnitude - 1);
}

template std::optional<int> wholeNumber(const std::string& text);
template std::optional<unsigned int> wholeNumber(const std::string& text);

std::string wholeNumbersFromTo(const std::string& suffix, long long lowest, long long highest) {
    return "whole number" + suffix + " from " + std::to_string(lowest) + " to " + std::to_string(highest);
}

std::string wholeNumbersFromTo(const std::string& suffix, unsigned long long lowest, unsigned long long highest) {
    return "whole number" + suffix + " from " + std::to_string(lowest) + " to " + std::to_string(highest);
}

Read<int> readValue(const std::string& text, Type<int> /*type*/, const Limits<int>& limits) {
    return readWhole(text, limits);
}

Read<unsigned int> readValue(const std::string& text, Type<unsigned int> /*type*/, const Limits<unsigned int>& limits) {
    return readWhole(text, limits);
}

Read<unsigned long> readValue(const std::string& text, Type<unsigned long> /*type*/,
                              const Limits<unsigned long>& limits) {
    return readWhole(text, limits);
}

Read<unsigned long long> readValue(const std::string& text, Type<unsigned long long> /*type*/,
                                   const Limits<unsigned long long>& limits) {
    return readWhole(text, limits);
}

}  // namespace Kelpkit
