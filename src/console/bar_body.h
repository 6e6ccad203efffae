#ifndef KELPLIB_CONSOLE_BAR_BODY_H
#define KELPLIB_CONSOLE_BAR_BODY_H

#include "console/bounded_text.h"

namespace Kelp {

/// Appends the body of a bar: ceil(width * ratio) marks "#", then width - 1 - trunc(width * ratio) blanks, neither below 0.
/// So a body of width 20 has 20 characters at ratio 0.51, 19 at 0.5, 20 at 1 and 21 at -0.1.
void appendBarBody(BoundedText& line, int width, double ratio);

}  // namespace Kelp

#endif
