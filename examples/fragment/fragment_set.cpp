#include "fragment_set.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "../common/files.h"
#include "../common/run_names.h"
#include "note.h"
#include "numbered.h"

namespace fragment {

namespace {

/// Whether a fragment with a higher number than the missing one exists. Takes the numbers from the names in the folder, but
/// lets the system decide whether base and number name a file, because it may ignore letter case.
bool isGap(const std::string& base, const std::string& missing) {
    const std::filesystem::path folder = common::pathOf(base + missing).parent_path();
    std::error_code reason;
    const std::filesystem::directory_iterator entries(folder.empty() ? "." : folder, reason);
    if (reason) {
        common::fail("cannot list the folder of " + base + missing, reason);
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

/// Throws if a cut that writes this file is in progress or was interrupted: old and new fragments may be mixed.
void requireNoLeftover(const std::string& name) {
    const std::string left = common::leftover(name);
    if (!left.empty()) {
        throw std::runtime_error(
            left +
            " belongs to a run that is in progress or was interrupted; the fragments may come from different cuts");
    }
}

std::string fragmentsText(unsigned long long count) {
    return std::to_string(count) + (count == 1 ? " fragment" : " fragments");
}

/// Throws unless the fragments are exactly those that the note counts, each once and in order.
/// \param first    the first named fragment; the others have the same base and number of digits
/// \param indices  the indices of all named fragments
void requireComplete(const Numbered& first, const std::vector<unsigned long long>& indices, const Note& note) {
    const std::string counted = "; " + noteName(first.base) + " counts " + fragmentsText(note.fragments);
    std::vector<unsigned long long> sorted = indices;
    std::sort(sorted.begin(), sorted.end());
    const bool isOfOtherWidth = std::to_string(note.fragments - 1).size() != first.digits;
    if (isOfOtherWidth || sorted.back() >= note.fragments) {
        throw std::runtime_error(first.name(isOfOtherWidth ? first.index : sorted.back()) + " belongs to another cut" +
                                 counted);
    }
    const auto twice = std::adjacent_find(sorted.begin(), sorted.end());
    if (twice != sorted.end()) {
        throw std::runtime_error(first.name(*twice) + " is named twice" + counted);
    }
    unsigned long long present = 0;
    while (present < sorted.size() && sorted[present] == present) {
        ++present;
    }
    if (present < note.fragments) {
        const std::string absent = first.name(present);
        throw std::runtime_error(absent + (common::exists(absent) ? " is not named" : " is missing") + counted);
    }
    const auto [found, expected] = std::mismatch(indices.begin(), indices.end(), sorted.begin());
    if (found != indices.end()) {
        throw std::runtime_error(first.name(*found) + " is out of order; name " + first.name(*expected) + " before it");
    }
}

/// Compares the fragments with the note of their cut, if they all belong to one cut and its note exists.
void checkNote(FragmentSet& set) {
    if (set.names.empty()) {
        return;
    }
    const Numbered first = splitName(set.names.front());
    const std::string noteFile = noteName(first.base);
    const std::optional<Note> note = readNote(noteFile);
    if (first.digits == 0 || !note) {
        return;
    }
    std::vector<unsigned long long> indices;
    for (const std::string& name : set.names) {
        const Numbered fragment = splitName(name);
        if (fragment.base != first.base || fragment.digits != first.digits) {
            return;
        }
        indices.push_back(fragment.index);
    }
    requireComplete(first, indices, *note);
    set.notes = {noteFile};
    set.bytes = note->bytes;
}

/// Returns the fragment and all that follow it without a gap and with the same number of digits.
FragmentSet followNumbers(const std::string& name, const std::string& output) {
    const Numbered first = splitName(name);
    if (first.digits == 0) {
        throw std::runtime_error(name + " does not end in a number; name all the fragments");
    }
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
    checkNote(set);
    return set;
}

/// Separates fragments and notes: a shell pattern such as piece* matches both.
FragmentSet separateNotes(const std::vector<std::string>& names) {
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

bool FragmentSet::operator==(const FragmentSet& other) const {
    return names == other.names && notes == other.notes && bytes == other.bytes;
}

FragmentSet findFragments(const Request& request) {
    return request.files.size() == 1 ? followNumbers(request.files.front(), request.output)
                                     : separateNotes(request.files);
}

void requireNoLeftover(const FragmentSet& set) {
    for (const std::vector<std::string>& names : {set.notes, set.names}) {
        for (const std::string& name : names) {
            requireNoLeftover(name);
        }
    }
}

}  // namespace fragment
