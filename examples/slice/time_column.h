#ifndef SLICE_TIME_COLUMN_H
#define SLICE_TIME_COLUMN_H

#include <optional>
#include <string_view>

namespace slice {

/// The time that a line begins with, in the line's own unit for a number, otherwise in seconds: since midnight for a clock
/// time, since the beginning of 1970 for a date. The help tells the forms.
/// \param line  the line, or at least its first 100 bytes
std::optional<double> timeOf(std::string_view line);

}  // namespace slice

#endif
