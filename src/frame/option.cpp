#include <kelplib/Kelp.h>

#include <algorithm>
#include <cctype>
#include <utility>

#include "platform/standard_streams.h"
#include "util/escape_sequences.h"

namespace Kelp {

Option::Option(std::string shortForm, std::string longForm, std::string helpText, bool mark)
    : shortFlag(std::move(shortForm)), longFlag(std::move(longForm)), description(std::move(helpText)), marker(mark) {}

void Option::printIndented(std::size_t /*width*/, std::size_t /*lineWidth*/) const {
    standardOutput() << "  " << escape::blue << shortFlag << ", " << longFlag << ":" << escape::reset << " "
                     << description << "\n\n";
}

Argument::Argument(std::string shownName, std::string helpText, bool mayRepeat)
    : name(std::move(shownName)), description(std::move(helpText)), repeated(mayRepeat) {}

void Argument::printIndented(std::size_t /*width*/, std::size_t /*lineWidth*/) const {
    standardOutput() << "  " << escape::blue << name << ":" << escape::reset << " " << description << "\n\n";
}

}  // namespace Kelp

bool ci_less::operator()(const std::string& a, const std::string& b) const {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char left, char right) {
        return std::tolower(static_cast<unsigned char>(left)) < std::tolower(static_cast<unsigned char>(right));
    });
}

std::string std::to_string(const Kelp::Option& option) {
    return option.shortFlag + ", " + option.longFlag + ":\t" + option.description;
}
