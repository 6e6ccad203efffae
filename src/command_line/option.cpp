#include <kelplib/Kelp.h>

#include <algorithm>
#include <cctype>
#include <utility>

#include "platform/standard_streams.h"
#include "util/escape_sequences.h"

namespace {

std::string orEmpty(const char* text) {
    return text == nullptr ? std::string() : text;
}

int folded(char character) {
    return std::tolower(static_cast<unsigned char>(character));
}

}  // namespace

namespace Kelp {

Option::Option(std::string shortFlag, std::string longFlag, std::string description, bool marker)
    : shortFlag(std::move(shortFlag)),
      longFlag(std::move(longFlag)),
      description(std::move(description)),
      marker(marker) {}

Option::Option(const char* shortFlag, const char* longFlag, const char* description, bool marker)
    : Option(orEmpty(shortFlag), orEmpty(longFlag), orEmpty(description), marker) {}

Option::Option(const Option&) = default;
Option::Option(Option&&) noexcept = default;
Option& Option::operator=(const Option&) = default;
Option& Option::operator=(Option&&) noexcept = default;
Option::~Option() = default;

void Option::printIndented(std::size_t /*width*/, std::size_t /*lineWidth*/) const {
    standardOutput() << "  " << escape::blue << shortFlag << ", " << longFlag << ":" << escape::reset << " "
                     << description << "\n\n";
}

Argument::Argument(std::string name, std::string description, bool repeated)
    : name(std::move(name)), description(std::move(description)), repeated(repeated) {}

Argument::Argument(const char* name, const char* description, bool repeated)
    : Argument(orEmpty(name), orEmpty(description), repeated) {}

Argument::Argument(const Argument&) = default;
Argument::Argument(Argument&&) noexcept = default;
Argument& Argument::operator=(const Argument&) = default;
Argument& Argument::operator=(Argument&&) noexcept = default;
Argument::~Argument() = default;

void Argument::printIndented(std::size_t /*width*/, std::size_t /*lineWidth*/) const {
    standardOutput() << "  " << escape::blue << name << ":" << escape::reset << " " << description << "\n\n";
}

}  // namespace Kelp

bool ci_less::operator()(const std::string& a, const std::string& b) const {
    const std::size_t shared = std::min(a.size(), b.size());
    // Every lookup of an option is a few of these comparisons, so they go without the checked access of the string.
    const char* const first = a.data();
    const char* const second = b.data();
    for (std::size_t i = 0; i < shared; ++i) {
        if (first[i] == second[i]) {
            continue;
        }
        const int left = folded(first[i]);
        const int right = folded(second[i]);
        if (left != right) {
            return left < right;
        }
    }
    return a.size() < b.size();
}

std::string std::to_string(const Kelp::Option& option) {
    return option.shortFlag + ", " + option.longFlag + ":\t" + option.description;
}
