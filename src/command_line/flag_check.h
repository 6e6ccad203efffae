#ifndef KELPLIB_COMMAND_LINE_FLAG_CHECK_H
#define KELPLIB_COMMAND_LINE_FLAG_CHECK_H

#include <kelplib/Kelp.h>

#include <map>
#include <string>

namespace Kelp {

/// The check of a command line against the options of a tool. A struct, so that the reader can name it as its friend.
struct FlagCheck {
    /// The options by their short flags.
    using Options = std::map<std::string, Option, ci_less>;

    /// Returns the key of the first flag that no option has; the empty text if there is none.
    static std::string findUnknown(const OptionReader& reader, const Options& options);
};

}  // namespace Kelp

#endif
