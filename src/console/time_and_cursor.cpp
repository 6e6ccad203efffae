#include <kelplib/KelpProgress.h>

#include "platform/platform.h"

double KELP_time_stamp() {
    return Kelp::platform::monotonicSeconds();
}

void KELP_sleep(unsigned int milliseconds) {
    Kelp::platform::sleepMilliseconds(milliseconds);
}

int KELP_rewind_cursor(unsigned int lines) {
    return Kelp::platform::rewindCursor(lines);
}
