#include "join.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <stdexcept>

#include "files.h"
#include "new_files.h"
#include "source.h"

namespace fragment {

namespace {

constexpr char decimalDigits[] = "0123456789";

/// Kelp::createFragmentName counts digits in double precision, which is exact up to here. Digits before them belong to
/// the name.
constexpr std::size_t mostDigits = 14;

std::string trailingDigits(const std::string& name) {
    // Where everything is a digit, npos + 1 is 0: the beginning.
    const std::string digits = name.substr(name.find_last_not_of(decimalDigits) + 1);
    return digits.size() > mostDigits ? digits.substr(digits.size() - mostDigits) : digits;
}

/// Whether a fragment with a higher number than the missing one exists. A name that ends in such a number is only a
/// hint: whether base and number name a file is left to the system, which may ignore letter case.
bool isGap(const std::string& base, const std::string& missing) {
    const std::filesystem::path folder = pathOf(base + missing).parent_path();
    const std::filesystem::directory_iterator entries(folder.empty() ? "." : folder);
    return std::any_of(begin(entries), end(entries), [&](const std::filesystem::directory_entry& entry) {
        const std::string digits = trailingDigits(entry.path().filename().u8string());
        if (digits.size() < missing.size()) {
            return false;
        }
        const std::string number = digits.substr(digits.size() - missing.size());
        return number > missing && exists(base + number);
    });
}

/// The fragment and all that follow it without a gap, with the same number of digits.
std::vector<std::string> followNumbers(const std::string& first) {
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
    while (next.size() == first.size() && exists(next)) {
        names.push_back(next);
        next = Kelp::createFragmentName(++index, base, width);
    }
    if (next.size() == first.size() && isGap(base, next.substr(base.size()))) {
        throw std::runtime_error(next + " is missing");
    }
    return names;
}

/// Refuses what cannot be read, before anything is written.
void checkFragments(const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        const Source source(name);
    }
}

}  // namespace

void join(const Request& request, const CommandLineTool& tool) {
    const std::vector<std::string> names =
        request.files.size() == 1 ? followNumbers(request.files.front()) : request.files;
    checkFragments(names);

    NewFiles joined({request.output}, request.overwrite);
    joined.startNext();
    std::uintmax_t bytes = 0;
    for (const std::string& name : names) {
        Source source(name);
        tool.print(name + ": " + std::to_string(source.bytes()) + " bytes");
        source.copyTo(joined, source.bytes());
        source.close();
        bytes += source.bytes();
    }
    joined.publish();
    std::cout << "fragments: " << names.size() << ", bytes: " << bytes << ", joined: " << request.output << std::endl;
}

}  // namespace fragment
