#include "join.h"

#include <iostream>
#include <optional>
#include <stdexcept>

#include "../common/files.h"
#include "../common/new_files.h"
#include "../common/printable.h"
#include "../common/progress.h"
#include "fragment_set.h"
#include "source.h"

namespace fragment {

namespace {

using Identities = std::vector<std::optional<common::FileIdentity>>;

Identities identitiesOf(const std::vector<std::string>& names) {
    Identities identities;
    for (const std::string& name : names) {
        identities.push_back(common::identityOfTarget(common::pathOf(name)));
    }
    return identities;
}

/// Returns the size of all fragments together. Throws if one cannot be read or the note has another size.
std::uintmax_t bytesOf(const FragmentSet& set) {
    std::uintmax_t bytes = 0;
    for (const std::string& name : set.names) {
        bytes += Source(name).bytes();
    }
    if (set.bytes != 0 && bytes != set.bytes) {
        throw std::runtime_error("the fragments have " + std::to_string(bytes) + " bytes, but " + set.notes.front() +
                                 " counts " + std::to_string(set.bytes));
    }
    return bytes;
}

/// Throws if a cut has replaced fragments since they were found. A cut replaces the last fragment first. So if old and new
/// fragments are mixed, a name refers to another file than before or the cut's unfinished files still exist.
void requireUnchanged(const Request& request, const FragmentSet& set, const Identities& before) {
    requireNoLeftover(set);
    if (!(findFragments(request) == set) || identitiesOf(set.names) != before) {
        throw std::runtime_error("the fragments were replaced while they were read");
    }
}

}  // namespace

void join(const Request& request, CommandLineTool& tool) {
    const FragmentSet set = findFragments(request);
    common::requireNoInput(request.output, set.names);
    common::requireNoInput(request.output, set.notes);
    requireNoLeftover(set);
    const Identities identities = identitiesOf(set.names);
    common::Progress progress(tool, "joining ", bytesOf(set));

    common::NewFiles joined({request.output}, request.overwrite);
    joined.startNext();
    std::uintmax_t bytes = 0;
    for (const std::string& name : set.names) {
        Source source(name);
        tool.print(common::printable(name) + ": " + std::to_string(source.bytes()) + " bytes");
        source.copyTo(joined, source.bytes(), progress);
        source.close();
        bytes += source.bytes();
    }
    requireUnchanged(request, set, identities);
    joined.publish();
    progress.finish();
    std::cout << "fragments: " << set.names.size() << ", bytes: " << bytes
              << ", joined: " << common::printable(request.output) << std::endl;
}

}  // namespace fragment
