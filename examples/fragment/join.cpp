#include "join.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <stdexcept>

#include "../common/files.h"
#include "../common/new_files.h"
#include "../common/progress.h"
#include "source.h"

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

/// Where a run was interrupted, old fragments and new ones may stand beside each other.
void requireNoLeftover(const std::string& name) {
    const std::string left = common::leftover(name);
    if (!left.empty()) {
        throw std::runtime_error(left + " is left of an interrupted run; the fragments may belong to different cuts");
    }
}

/// The fragment and all that follow it without a gap, with the same number of digits.
/// \param output  where they are going to be joined
std::vector<std::string> followNumbers(const std::string& first, const std::string& output) {
    const std::string digits = trailingDigits(first);
    if (digits.empty()) {
        throw std::runtime_error(first + " does not end in a number; name all the fragments");
    }
    const std::string base = first.substr(0, first.size() - digits.size());
    const auto width = static_cast<unsigned int>(digits.size() - 1);
    unsigned long long index = 0;
    Kelp::stringToValue(index, digits);

    std::vector<std::string> names{first};
    std::string next = Kelp::createFragmentName(++index, base, width);
    while (next.size() == first.size() && common::exists(next)) {
        names.push_back(next);
        next = Kelp::createFragmentName(++index, base, width);
    }
    requireNoLeftover(next);
    if (isSamePath(next, output)) {
        throw std::runtime_error(output + " would count as one more fragment; choose another name");
    }
    if (next.size() == first.size() && isGap(base, next.substr(base.size()))) {
        throw std::runtime_error(next + " is missing");
    }
    return names;
}

/// The bytes of all fragments. Refuses what cannot be read, before anything is written.
std::uintmax_t bytesOf(const std::vector<std::string>& names) {
    std::uintmax_t bytes = 0;
    for (const std::string& name : names) {
        requireNoLeftover(name);
        bytes += Source(name).bytes();
    }
    return bytes;
}

}  // namespace

void join(const Request& request, CommandLineTool& tool) {
    const std::vector<std::string> names =
        request.files.size() == 1 ? followNumbers(request.files.front(), request.output) : request.files;
    common::Progress progress(tool, "joining ", bytesOf(names));

    common::NewFiles joined({request.output}, request.overwrite);
    joined.startNext();
    std::uintmax_t bytes = 0;
    for (const std::string& name : names) {
        Source source(name);
        tool.print(name + ": " + std::to_string(source.bytes()) + " bytes");
        source.copyTo(joined, source.bytes(), progress);
        source.close();
        bytes += source.bytes();
    }
    joined.publish();
    progress.finish();
    std::cout << "fragments: " << names.size() << ", bytes: " << bytes << ", joined: " << request.output << std::endl;
}

}  // namespace fragment
