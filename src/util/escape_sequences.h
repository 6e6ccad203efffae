#ifndef KELPLIB_UTIL_ESCAPE_SEQUENCES_H
#define KELPLIB_UTIL_ESCAPE_SEQUENCES_H

/// The ECMA-48 graphic renditions that the library prints without getColoredString.
namespace Kelp::escape {

inline constexpr char red[] = "\033[31m";
inline constexpr char blue[] = "\033[34m";
inline constexpr char reset[] = "\033[0m";

}  // namespace Kelp::escape

#endif
