#ifndef FRAGMENT_FRAGMENT_SET_H
#define FRAGMENT_FRAGMENT_SET_H

#include <string>
#include <vector>

#include "request.h"

namespace fragment {

/// What a command line asks to join.
struct FragmentSet {
    std::vector<std::string> names;
    std::vector<std::string>
        notes;  ///< files that a run which writes these fragments writes too, whether they exist or not
    unsigned long long bytes = 0;  ///< of all fragments together, according to the notes; 0: unknown

    bool operator==(const FragmentSet& other) const;
};

/// The named files; of one alone, the fragment and all that follow it. Notes of cuts among them are not joined.
/// Fragments of one set that has its note have to be the whole set, in order.
/// \throws std::runtime_error  when fragments are missing, named twice or out of order, as far as names and notes show it
FragmentSet findFragments(const Request& request);

/// Refuses fragments that another run is replacing or has left unfinished.
void requireNoLeftover(const FragmentSet& set);

}  // namespace fragment

#endif
