#ifndef KELPLIB_CONSOLE_BAR_BODY_H
#define KELPLIB_CONSOLE_BAR_BODY_H

#include "console/bounded_text.h"

namespace Kelp {

/// Appends the inside of a bar of `width` characters: "#" for every one of width * ratio that is begun, then blanks. It is
/// `width` characters long when the filled part has a fraction and one shorter when it is whole; longer above a ratio of 1.
void appendBarBody(BoundedText& line, int width, double ratio);

}  // namespace Kelp

#endif
