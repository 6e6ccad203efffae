#ifndef SLICE_TIME_COLUMN_H
#define SLICE_TIME_COLUMN_H

#include <optional>
#include <string_view>

namespace slice {

/// Returns the time at the beginning of a line: a number as it is, a clock time as seconds since midnight, a date as seconds
/// since the beginning of 1970. The help lists the formats.
/// \param line  the line, or at least its first 100 bytes
std::optional<double> timeOf(std::string_view line);

}  // namespace slice

#endif
