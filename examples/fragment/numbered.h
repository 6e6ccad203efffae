#ifndef FRAGMENT_NUMBERED_H
#define FRAGMENT_NUMBERED_H

#include <algorithm>
#include <cstddef>
#include <string>

namespace fragment {

/// Kelp::createFragmentName counts digits in double precision, which is exact up to this many. More digits belong to the
/// base.
constexpr std::size_t maxDigits = 14;

/// Returns the digits at the end of a name.
/// \param name  a std::string or the native string of a path
template <class Text>
std::string trailingDigits(const Text& name) {
    const auto isDigit = [](auto character) { return character >= '0' && character <= '9'; };
    const auto end = std::find_if_not(name.rbegin(), name.rend(), isDigit);
    const auto count = std::min<std::size_t>(static_cast<std::size_t>(end - name.rbegin()), maxDigits);
    std::string digits(count, '0');
    std::transform(name.end() - static_cast<std::ptrdiff_t>(count), name.end(), digits.begin(),
                   [](auto character) { return static_cast<char>(character); });
    return digits;
}

/// A fragment's name, split into base and number. `digits` is 0 if it has no number.
struct Numbered {
    std::string base;
    unsigned long long index = 0;
    std::size_t digits = 0;

    /// Returns the name of the fragment of the same set with this number.
    std::string name(unsigned long long otherIndex) const;
};

Numbered splitName(const std::string& name);

}  // namespace fragment

#endif
