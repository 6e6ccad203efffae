/* Loaded into a tool (LD_PRELOAD): each look at a clock finds it a second later. */

#define _GNU_SOURCE
#include <time.h>

int clock_gettime(clockid_t clock, struct timespec* now) {
    static time_t seconds = 1000;
    (void)clock;
    ++seconds;
    now->tv_sec = seconds;
    now->tv_nsec = 0;
    return 0;
}
