#include "numbered.h"

#include <kelplib/Kelp.h>

namespace fragment {

std::string Numbered::name(unsigned long long otherIndex) const {
    return Kelp::createFragmentName(otherIndex, base, static_cast<unsigned int>(digits - 1));
}

Numbered splitName(const std::string& name) {
    const std::string digits = trailingDigits(name);
    Numbered fragment{name.substr(0, name.size() - digits.size()), 0, digits.size()};
    Kelp::stringToValue(fragment.index, digits);
    return fragment;
}

}  // namespace fragment
