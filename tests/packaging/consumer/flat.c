/* A C program on the flat interface: what it writes into the library's object, the library draws. */
#include <kelplib/KelpProgress.h>

#include <stdio.h>

int main(void) {
    KELP_progress_global_init(10, 4, "from C ", 0);
    KELP_GlobalProgress.start_time = 0;
    KELP_progress_global(5);
    puts("");
    return 0;
}
