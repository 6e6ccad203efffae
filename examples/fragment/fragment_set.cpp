#include "fragment_set.h"

#include <kelplib/Kelp.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "../common/files.h"
#include "../common/run_names.h"
#include "note.h"

namespace fragment {

namespace {

/// Kelp::createFragmentName counts digits in double precision, which is exact up to here. Digits before them belong to
/// the name.
constexpr std::size_t mostDigits = 14;

/// \param name  a text or a path's own text
template <class Text>
std::string trailingDigits(const Text& name) {
    const auto isDigit = [](auto character) { return character >= '0' && character <= '9'; };
    const auto end = std::find_if_not(name.rbegin(), name.rend(), isDigit);
    const auto count = std::min<std::size_t>(static_cast<std::size_t>(end - name.rbegin()), mostDigits);
    std::string digits(count, '0');
    std::transform(name.end() - static_cast<std::ptrdiff_t>(count), name.end(), digits.begin(),
                   [](auto character) { return static_cast<char>(character); });
    return digits;
}

/// Whether a fragment with a higher number than the missing one exists. A name that ends in such a number is only a
/// hint: whether base and number name a file is left to the system, which may ignore letter case.
bool isGap(const std::string& base, const std::string& missing) {
    const std::filesystem::path folder = common::pathOf(base + missing).parent_path();
    std::error_code reason;
    const std::filesystem::directory_iterator entries(folder.empty() ? "." : folder, reason);
    if (reason) {
        common::fail("cannot look beside " + base + missing, reason);
    }
    return std::any_of(begin(entries), end(entries), [&](const std::filesystem::directory_entry& entry) {
        const std::string digits = trailingDigits(entry.path().filename().native());
        if (digits.size() < missing.size()) {
            return false;
        }
        const std::string number = digits.substr(digits.size() - missing.size());
        return number > missing && common::exists(base + number);
    });
}

bool isSamePath(const std::string& one, const std::string& other) {
    std::error_code oneReason;
    std::error_code otherReason;
    return std::filesystem::weakly_canonical(std::filesystem::absolute(common::pathOf(one)), oneReason) ==
               std::filesystem::weakly_canonical(common::pathOf(other), otherReason) &&
           !oneReason && !otherReason;
}

/// Where a cut was interrupted or is at work, old fragments and new ones may lie beside each other.
void requireNoLeftover(const std::string& name) {
    const std::string left = common::leftover(name);
    if (!left.empty()) {
        throw std::runtime_error(
            left + " belongs to a run that is at work or was interrupted; the fragments may be of different cuts");
    }
}

/// A numbered fragment, taken apart.
struct Numbered {
    std::string base;
    unsigned long long index = 0;
    std::size_t digits = 0;

    std::string name(unsigned long long otherIndex) const {
        return Kelp::createFragmentName(otherIndex, base, static_cast<unsigned int>(digits - 1));
    }
};

Numbered takeApart(const std::string& name) {
    const std::string digits = trailingDigits(name);
    if (digits.empty()) {
        throw std::runtime_error(name + " does not end in a number; name all the fragments");
    }
    Numbered fragment{name.substr(0, name.size() - digits.size()), 0, digits.size()};
    Kelp::stringToValue(fragment.index, digits);
    return fragment;
}

/// Compares the fragments that were found with the note of their cut.
void requireAll(const Numbered& first, std::size_t found, const Note& note) {
    const std::string counted = noteName(first.base) + " counts " + std::to_string(note.fragments) + " fragments";
    const unsigned long long end = first.index + found;
    const bool isOfOtherWidth = std::to_string(note.fragments - 1).size() != first.digits;
    if (isOfOtherWidth || end > note.fragments) {
        throw std::runtime_error(first.name(isOfOtherWidth ? first.index : end - 1) + " is of another cut; " + counted);
    }
    if (end < note.fragments) {
        throw std::runtime_error(first.name(end) + " is missing; " + counted);
    }
}

/// The fragment and all that follow it without a gap, with the same number of digits.
FragmentSet followNumbers(const std::string& name, const std::string& output) {
    const Numbered first = takeApart(name);
    FragmentSet set{{name}, {noteName(first.base)}, 0};
    unsigned long long index = first.index + 1;
    std::string next = first.name(index);
    while (next.size() == name.size() && common::exists(next)) {
        set.names.push_back(next);
        next = first.name(++index);
    }
    requireNoLeftover(next);
    if (isSamePath(next, output)) {
        throw std::runtime_error(output + " would count as one more fragment; choose another name");
    }
    if (next.size() == name.size() && isGap(first.base, next.substr(first.base.size()))) {
        throw std::runtime_error(next + " is missing");
    }
    if (const std::optional<Note> note = readNote(set.notes.front())) {
        requireAll(first, set.names.size(), *note);
        set.bytes = first.index == 0 ? note->bytes : 0;
    }
    return set;
}

/// A pattern of the shell matches the notes of the fragments too.
FragmentSet setApart(const std::vector<std::string>& names) {
    FragmentSet set;
    unsigned long long noted = 0;
    for (const std::string& name : names) {
        if (const std::optional<Note> note = readNote(name)) {
            set.notes.push_back(name);
            set.bytes += note->bytes;
            noted += note->fragments;
        } else {
            set.names.push_back(name);
        }
    }
    if (!set.notes.empty() && noted != set.names.size()) {
        throw std::runtime_error(set.notes.front() + " counts " + std::to_string(noted) + " fragments, but " +
                                 std::to_string(set.names.size()) + " are named");
    }
    return set;
}

}  // namespace

bool FragmentSet::operator==(const FragmentSet& other) const {
    return names == other.names && notes == other.notes && bytes == other.bytes;
}

FragmentSet findFragments(const Request& request) {
    return request.files.size() == 1 ? followNumbers(request.files.front(), request.output) : setApart(request.files);
}

void requireNoLeftover(const FragmentSet& set) {
    for (const std::vector<std::string>& names : {set.notes, set.names}) {
        for (const std::string& name : names) {
            requireNoLeftover(name);
        }
    }
}

}  // namespace fragment
