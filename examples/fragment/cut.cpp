#include "cut.h"

#include <iostream>
#include <optional>
#include <stdexcept>

#include "../common/files.h"
#include "../common/new_files.h"
#include "../common/printable.h"
#include "../common/progress.h"
#include "note.h"
#include "source.h"

namespace fragment {

namespace {

/// The sizes of the fragments: each of the first `longer` fragments has `bytes` bytes, each of the others `restBytes`.
struct Plan {
    unsigned long long count;
    unsigned long long longer;
    unsigned long long bytes;
    unsigned long long restBytes;
};

Plan planNumber(const Source& source, const Request& request) {
    const unsigned long long pieces = request.pieces;
    if (pieces > source.bytes()) {
        throw std::runtime_error("-n=" + std::to_string(pieces) + ": " + request.files.front() + " has only " +
                                 std::to_string(source.bytes()) + " bytes");
    }
    const unsigned long long bytes = source.bytes() / pieces;
    return {pieces, source.bytes() % pieces, bytes + 1, bytes};
}

Plan planSize(const Source& source, unsigned long long pieceBytes) {
    const unsigned long long full = (source.bytes() - 1) / pieceBytes;
    if (full + 1 > maxFragments) {
        throw std::runtime_error("-s=" + std::to_string(pieceBytes) + ": makes " + std::to_string(full + 1) +
                                 " fragments, more than " + std::to_string(maxFragments));
    }
    return {full + 1, full, pieceBytes, source.bytes() - full * pieceBytes};
}

/// Returns the beginning of all fragment names.
std::string baseName(const Request& request) {
    if (request.output.empty()) {
        return request.files.front() + ".part_";
    }
    const char last = request.output.back();
    if (last >= '0' && last <= '9') {
        throw std::runtime_error(request.output + ": ends in a digit, which a join would read as part of the number");
    }
    return request.output;
}

/// Returns the width for createFragmentName, which writes width + 1 digits: as many as the last index has.
unsigned int widthFor(unsigned long long count) {
    return static_cast<unsigned int>(std::to_string(count - 1).size() - 1);
}

/// Throws if fragments of an earlier cut would remain beside the new ones. Fragments of a longer cut would be joined with the
/// new ones, and fragments with another number of digits would lose their note, which the new cut overwrites.
void requireNoOtherCut(const std::string& base, unsigned long long count) {
    std::string other = Kelp::createFragmentName(count, base, widthFor(count));
    const std::optional<Note> before = readNote(noteName(base));
    if (before && widthFor(before->fragments) != widthFor(count)) {
        other = Kelp::createFragmentName(0, base, widthFor(before->fragments));
    } else if (widthFor(count + 1) != widthFor(count)) {
        return;
    }
    if (common::exists(other)) {
        throw std::runtime_error(
            other +
            " belongs to another cut; remove it and the fragments after it (-f replaces only fragments of the new cut)");
    }
}

/// Returns the names of all files that the cut writes. The note comes first: NewFiles excludes two runs with the same first
/// name, and all cuts with this base share the note.
std::vector<std::string> namesOf(const std::string& base, unsigned long long count) {
    std::vector<std::string> names{noteName(base)};
    for (unsigned long long i = 0; i < count; ++i) {
        names.push_back(Kelp::createFragmentName(i, base, widthFor(count)));
    }
    return names;
}

void startWithNote(common::NewFiles& files, const Note& note) {
    const std::string text = textOf(note);
    files.startNext();
    files.write(text.data(), text.size());
}

}  // namespace

void cut(const Request& request, CommandLineTool& tool) {
    Source source(request.files.front());
    const Plan plan = request.pieces != 0 ? planNumber(source, request) : planSize(source, request.pieceBytes);
    const std::string base = baseName(request);
    const std::vector<std::string> names = namesOf(base, plan.count);
    for (const std::string& name : names) {
        common::requireNoInput(name, request.files);
    }

    common::NewFiles files(names, request.overwrite);
    common::Progress progress(tool, "cutting ", source.bytes());
    startWithNote(files, {plan.count, source.bytes()});
    requireNoOtherCut(base, plan.count);
    for (std::size_t i = 0; i < plan.count; ++i) {
        const unsigned long long bytes = i < plan.longer ? plan.bytes : plan.restBytes;
        tool.print(common::printable(names[i + 1]) + ": " + std::to_string(bytes) + " bytes");
        files.startNext();
        source.copyTo(files, bytes, progress);
    }
    source.close();
    files.publish();
    progress.finish();
    std::cout << "fragments: " << plan.count << ", bytes: " << source.bytes()
              << ", first: " << common::printable(names[1]) << ", last: " << common::printable(names.back())
              << std::endl;
}

}  // namespace fragment
