#include <algorithm>

#include "fragment.h"

namespace fragment {

namespace {

/// Kelp::createFragmentName counts digits in double precision, which is exact up to this many. More digits belong to the base.
constexpr std::size_t maxDigits = 14;

/// Returns the digits at the end of a name: a std::string or the native string of a path.
template <class Text>
std::string trailingDigits(const Text& name, std::size_t most) {
    std::string digits;
    for (auto end = name.rbegin(); end != name.rend() && *end >= '0' && *end <= '9' && digits.size() < most; ++end) {
        digits.insert(digits.begin(), static_cast<char>(*end));
    }
    return digits;
}

/// A fragment's name, split into base and number. `digits` is 0 if it has no number.
struct Numbered {
    explicit Numbered(const std::string& name) : digits(trailingDigits(name, maxDigits).size()) {
        base = name.substr(0, name.size() - digits);
        Kelp::stringToValue(index, name.substr(base.size()));
    }

    std::size_t digits;
    std::string base;
    unsigned long long index = 0;
};

/// Whether a fragment with a higher number than the missing one exists. Takes the numbers from the names in the folder, but
/// lets the system decide whether base and number name a file, because it may ignore letter case.
bool isGap(const std::string& base, const std::string& missing) {
    const std::filesystem::path folder = Kelpkit::pathOf(base + missing).parent_path();
    std::error_code reason;
    const std::filesystem::directory_iterator entries(folder.empty() ? "." : folder, reason);
    if (reason) {
        Kelpkit::fail("cannot list the folder of " + base + missing, reason);
    }
    return std::any_of(begin(entries), end(entries), [&](const std::filesystem::directory_entry& entry) {
        const std::string number = trailingDigits(entry.path().filename().native(), missing.size());
        return number.size() == missing.size() && number > missing && Kelpkit::exists(base + number);
    });
}

bool isSamePath(const std::string& one, const std::string& other) {
    const std::filesystem::path first = std::filesystem::absolute(Kelpkit::pathOf(one));
    const std::filesystem::path second = std::filesystem::absolute(Kelpkit::pathOf(other));
    std::error_code ignored;
    return first.filename() == second.filename() &&
           std::filesystem::equivalent(first.parent_path(), second.parent_path(), ignored);
}

std::string fragmentsText(unsigned long long count) {
    return std::to_string(count) + (count == 1 ? " fragment" : " fragments");
}

/// Throws unless the names are exactly those that the note counts, each once and in order.
void requireComplete(const std::vector<std::string>& names, const std::string& base, const Note& note) {
    std::vector<std::string> all;
    for (unsigned long long i = 0; i < note.fragments; ++i) {
        all.push_back(fragmentName(base, i, note.fragments));
    }
    const auto [found, expected] = std::mismatch(names.begin(), names.end(), all.begin(), all.end());
    std::string problem;
    if (found != names.end() && std::find(all.begin(), all.end(), *found) == all.end()) {
        problem = *found + " belongs to another cut";
    } else if (std::find(names.begin(), found, found == names.end() ? "" : *found) != found) {
        problem = *found + " is named twice";
    } else if (expected == all.end()) {
        return;
    } else if (std::find(found, names.end(), *expected) != names.end()) {
        throw std::runtime_error(*found + " is out of order; name " + *expected + " before it");
    } else {
        problem = *expected + (Kelpkit::exists(*expected) ? " is not named" : " is missing");
    }
    throw std::runtime_error(problem + "; " + noteName(base) + " counts " + fragmentsText(note.fragments));
}

/// Compares the fragments with the note of their cut, if they all belong to one cut and its note exists.
void checkNote(FragmentSet& set) {
    const Numbered first(set.names.empty() ? "" : set.names.front());
    const std::optional<Note> note = readNote(noteName(first.base));
    const bool isOneCut = std::all_of(set.names.begin(), set.names.end(), [&first](const std::string& name) {
        const Numbered fragment(name);
        return fragment.base == first.base && fragment.digits == first.digits;
    });
    if (first.digits == 0 || !note || !isOneCut) {
        return;
    }
    requireComplete(set.names, first.base, *note);
    set.notes = {noteName(first.base)};
    set.bytes = note->bytes;
}

void requireNoLeftover(const std::string& name) {
    if (const std::string left = Kelpkit::leftover(name); !left.empty()) {
        throw std::runtime_error(left +
                                 " belongs to a run that is in progress or was interrupted; "
                                 "the fragments may come from different cuts");
    }
}

/// Returns the fragment and all that follow it without a gap and with the same number of digits.
FragmentSet followNumbers(const std::string& name, const std::string& output) {
    const Numbered first(name);
    if (first.digits == 0) {
        throw std::runtime_error(name + " does not end in a number; name all the fragments");
    }
    FragmentSet set;
    set.notes = {noteName(first.base)};
    std::string next = name;
    do {
        set.names.push_back(next);
        const auto width = static_cast<unsigned int>(first.digits - 1);
        next = Kelp::createFragmentName(first.index + set.names.size(), first.base, width);
    } while (next.size() == name.size() && Kelpkit::exists(next));
    requireNoLeftover(next);
    if (isSamePath(next, output)) {
        throw std::runtime_error(output + " would count as one more fragment; choose another name");
    }
    if (next.size() == name.size() && isGap(first.base, next.substr(first.base.size()))) {
        throw std::runtime_error(next + " is missing");
    }
    checkNote(set);
    return set;
}

/// Separates fragments and notes: a shell pattern such as piece* matches both.
FragmentSet separateNotes(const std::vector<std::string>& names) {
    FragmentSet set;
    unsigned long long noted = 0;
    for (const std::string& name : names) {
        const std::optional<Note> note = readNote(name);
        (note ? set.notes : set.names).push_back(name);
        set.bytes += note ? note->bytes : 0;
        noted += note ? note->fragments : 0;
    }
    const std::vector<std::string> notes = set.notes;
    checkNote(set);
    if (!notes.empty() && noted != set.names.size()) {
        throw std::runtime_error((notes.size() == 1 ? notes.front() + " counts " : "the notes count ") +
                                 fragmentsText(noted) + ", but " + std::to_string(set.names.size()) +
                                 (set.names.size() == 1 ? " is named" : " are named"));
    }
    return set;
}

}  // namespace

std::string fragmentName(const std::string& base, unsigned long long index, unsigned long long count) {
    // The library writes one digit more than its last argument says.
    return Kelp::createFragmentName(index, base, static_cast<unsigned int>(std::to_string(count - 1).size() - 1));
}

FragmentSet findFragments(const std::vector<std::string>& files, const std::string& output) {
    FragmentSet set = files.size() == 1 ? followNumbers(files.front(), output) : separateNotes(files);
    std::for_each(set.notes.begin(), set.notes.end(), requireNoLeftover);
    std::for_each(set.names.begin(), set.names.end(), requireNoLeftover);
    for (const std::string& name : set.names) {
        set.identities.push_back(Kelpkit::identityOfTarget(Kelpkit::pathOf(name)));
    }
    return set;
}

}  // namespace fragment
