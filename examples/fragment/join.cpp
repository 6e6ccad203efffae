#include <iostream>
#include <tuple>

#include "fragment.h"

namespace fragment {

namespace {

/// Returns the size of all fragments together. Throws if one cannot be read or the note has another size.
std::uintmax_t bytesOf(const FragmentSet& set) {
    std::uintmax_t bytes = 0;
    for (const std::string& name : set.names) {
        bytes += Source(name).bytes;
    }
    if (set.bytes != 0 && bytes != set.bytes) {
        throw std::runtime_error("the fragments have " + std::to_string(bytes) + " bytes, but " + set.notes.front() +
                                 " counts " + std::to_string(set.bytes));
    }
    return bytes;
}

}  // namespace

void join(const Kelpkit::CommandLine& line) {
    const std::string output = line.outputFile("-o").value();
    const FragmentSet set = findFragments(line.arguments(), output);
    Kelpkit::requireNoInput(output, set.names);
    Kelpkit::requireNoInput(output, set.notes);
    const std::uintmax_t bytes = bytesOf(set);
    Kelpkit::NewFiles joined({output}, line.has("-f"), "-f overwrites it");
    Kelpkit::Progress progress(bytes, "joining");
    joined.startNext();
    for (const std::string& name : set.names) {
        Source source(name);
        line.print(Kelpkit::printable(name) + ": " + std::to_string(source.bytes) + " bytes");
        source.copyTo(joined, source.bytes, progress);
        source.requireEnd();
    }
    // A cut replaces the last fragment first. So if old and new fragments are mixed, the cut's unfinished files still exist or a
    // name refers to another file than before. findFragments() looks for them in this order.
    const FragmentSet now = findFragments(line.arguments(), output);
    if (std::tie(now.names, now.notes, now.bytes, now.identities) !=
        std::tie(set.names, set.notes, set.bytes, set.identities)) {
        throw std::runtime_error("the fragments were replaced while they were read");
    }
    joined.publish();
    progress.finish();
    std::cout << "fragments: " << set.names.size() << ", bytes: " << bytes << ", joined: " << Kelpkit::printable(output)
              << "\n";
}

}  // namespace fragment
