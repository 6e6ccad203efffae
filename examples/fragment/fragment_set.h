#ifndef FRAGMENT_FRAGMENT_SET_H
#define FRAGMENT_FRAGMENT_SET_H

#include <string>
#include <vector>

#include "request.h"

namespace fragment {

/// The files to join.
struct FragmentSet {
    std::vector<std::string> names;
    std::vector<std::string> notes;  ///< files that a cut into these fragments writes first; they may not exist
    unsigned long long bytes = 0;    ///< of all fragments together, according to the notes; 0 if unknown

    bool operator==(const FragmentSet& other) const;
};

/// Returns the named files without notes; for a single file, the fragment and all that follow it.
/// \throws std::runtime_error  if names or notes show that fragments are missing, named twice or out of order
FragmentSet findFragments(const Request& request);

/// Throws if another run is replacing one of the files or has left it unfinished.
void requireNoLeftover(const FragmentSet& set);

}  // namespace fragment

#endif
