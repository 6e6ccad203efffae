#include "cut.h"

#include <iostream>
#include <stdexcept>

#include "../common/files.h"
#include "../common/new_files.h"
#include "../common/progress.h"
#include "source.h"

namespace fragment {

namespace {

/// The sizes of the fragments: the first `longer` ones have `bytes`, those after them `restBytes`.
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
    if (full + 1 > mostFragments) {
        throw std::runtime_error("-s=" + std::to_string(pieceBytes) + ": makes " + std::to_string(full + 1) +
                                 " fragments, more than " + std::to_string(mostFragments));
    }
    return {full + 1, full, pieceBytes, source.bytes() - full * pieceBytes};
}

/// The names of the fragments begin so.
std::string baseName(const Request& request) {
    if (request.output.empty()) {
        return request.files.front() + ".part_";
    }
    const char last = request.output.back();
    if (last >= '0' && last <= '9') {
        throw std::runtime_error(request.output +
                                 ": ends in a digit, which a join would take for a part of the number");
    }
    return request.output;
}

std::vector<std::string> fragmentNames(const std::string& base, unsigned long long count) {
    // createFragmentName writes width + 1 digits: as many as the last index has.
    const auto width = static_cast<unsigned int>(std::to_string(count - 1).size() - 1);
    std::vector<std::string> names;
    for (unsigned long long i = 0; i < count; ++i) {
        names.push_back(Kelp::createFragmentName(i, base, width));
    }
    // A join that follows the numbers would go on into the fragments of an earlier, longer cut.
    const std::string next = Kelp::createFragmentName(count, base, width);
    if (next.size() == names.back().size() && common::exists(next)) {
        throw std::runtime_error(next + " belongs to another cut; remove that one first");
    }
    return names;
}

}  // namespace

void cut(const Request& request, CommandLineTool& tool) {
    Source source(request.files.front());
    const Plan plan = request.pieces != 0 ? planNumber(source, request) : planSize(source, request.pieceBytes);
    const std::vector<std::string> names = fragmentNames(baseName(request), plan.count);

    common::NewFiles fragments(names, request.overwrite);
    common::Progress progress(tool, "cutting ", source.bytes());
    for (std::size_t i = 0; i < names.size(); ++i) {
        const unsigned long long bytes = i < plan.longer ? plan.bytes : plan.restBytes;
        tool.print(names[i] + ": " + std::to_string(bytes) + " bytes");
        fragments.startNext();
        source.copyTo(fragments, bytes, progress);
    }
    source.close();
    fragments.publish();
    progress.finish();
    std::cout << "fragments: " << names.size() << ", bytes: " << source.bytes() << ", first: " << names.front()
              << ", last: " << names.back() << std::endl;
}

}  // namespace fragment
