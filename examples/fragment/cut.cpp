#include <iostream>

#include "fragment.h"

namespace fragment {

namespace {

constexpr long long maxBytes = std::numeric_limits<long long>::max();  // of a file

/// Returns the beginning of all fragment names.
std::string baseName(const Kelpkit::CommandLine& line) {
    std::string base = line.outputFile("-o").value_or(line.arguments().front() + ".part_");
    if (base.back() >= '0' && base.back() <= '9') {
        line.refuse("-o", "ends in a digit, which a join would read as part of the number");
    }
    return base;
}

using Number = std::optional<std::uintmax_t>;

/// Returns the sizes of all fragments.
std::vector<std::uintmax_t> sizesFor(const Kelpkit::CommandLine& line, std::uintmax_t bytes, Number pieces,
                                     Number each) {
    if (pieces > bytes) {
        line.refuse("-n", line.arguments().front() + " has only " + std::to_string(bytes) + " bytes");
    }
    const std::uintmax_t count = pieces ? *pieces : (bytes - 1) / each.value() + 1;
    if (count > maxFragments) {
        line.refuse("-s", "makes " + std::to_string(count) + " fragments, more than " + std::to_string(maxFragments));
    }
    std::vector<std::uintmax_t> sizes;
    for (std::uintmax_t left = count; left > 0; --left) {
        sizes.push_back(pieces ? (bytes + left - 1) / left : std::min(bytes, *each));
        bytes -= sizes.back();
    }
    return sizes;
}

/// Throws if fragments of an earlier cut would remain beside the new ones. Fragments of a longer cut would be joined with the
/// new ones, and fragments with another number of digits would lose their note, which the new cut overwrites.
void requireNoOtherCut(const std::string& base, unsigned long long count) {
    const std::string first = fragmentName(base, 0, count);
    const std::optional<Note> before = readNote(noteName(base));
    std::string other = before ? fragmentName(base, 0, before->fragments) : first;
    if (other == first && fragmentName(base, 0, count + 1) == first) {
        other = fragmentName(base, count, count + 1);
    }
    if (other != first && Kelpkit::exists(other)) {
        throw std::runtime_error(other +
                                 " belongs to another cut; remove it and the fragments after it"
                                 " (-f replaces only fragments of the new cut)");
    }
}

}  // namespace

void cut(const Kelpkit::CommandLine& line) {
    const Number pieces = line.value<std::uintmax_t>("-n", Kelpkit::between(1ULL, maxFragments));
    const Number each = line.value<std::uintmax_t>("-s", Kelpkit::between(1LL, maxBytes));
    const std::string base = baseName(line);
    Source source(line.arguments().front());
    const std::vector<std::uintmax_t> sizes = sizesFor(line, source.bytes, pieces, each);
    // The note comes first: NewFiles excludes two runs with the same first name, and all cuts with this base share the note.
    std::vector<std::string> names{noteName(base)};
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        names.push_back(fragmentName(base, i, sizes.size()));
    }
    for (const std::string& name : names) {
        Kelpkit::requireNoInput(name, line.arguments());
    }
    Kelpkit::NewFiles files(names, line.has("-f"), "-f overwrites it");
    Kelpkit::Progress progress(source.bytes, "cutting");
    files.startNext();
    const std::string note = textOf({sizes.size(), source.bytes});
    files.write(note.data(), note.size());
    requireNoOtherCut(base, sizes.size());
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        line.print(Kelpkit::printable(names[i + 1]) + ": " + std::to_string(sizes[i]) + " bytes");
        files.startNext();
        source.copyTo(files, sizes[i], progress);
    }
    source.requireEnd();
    files.publish();
    progress.finish();
    std::cout << "fragments: " << sizes.size() << ", bytes: " << source.bytes
              << ", first: " << Kelpkit::printable(names[1]) << ", last: " << Kelpkit::printable(names.back()) << "\n";
}

}  // namespace fragment
