/* A C program that uses the flat interface: the library draws what the program stores in its object. */
#include <kelplib/KelpProgress.h>

#include <stdio.h>

/* These declarations compile only if they agree with the header. */
KELP_API int KELP_progress(double value, double total, int width, const char* text, double start_time);
KELP_API double KELP_time_stamp(void);
KELP_API void KELP_sleep(unsigned int milliseconds);
KELP_API int KELP_rewind_cursor(unsigned int lines);
KELP_API int KELP_progress_global_init(double total, int width, const char* text, int smile);
KELP_API void KELP_progress_global_set_text(const char* text, size_t max_length);
KELP_API int KELP_progress_global(double value);
KELP_API int KELP_progress_smile(double value);
extern KELP_API struct KELP_GlobalProgressData KELP_GlobalProgress;

/* The offsets of the members are part of the interface. */
typedef int order_is_kept[offsetof(struct KELP_GlobalProgressData, total) == 0 &&
                                  offsetof(struct KELP_GlobalProgressData, width) == 8 &&
                                  offsetof(struct KELP_GlobalProgressData, text) == 12 &&
                                  offsetof(struct KELP_GlobalProgressData, start_time) == 144 &&
                                  offsetof(struct KELP_GlobalProgressData, last_blink) == 152 &&
                                  offsetof(struct KELP_GlobalProgressData, smile) == 160 &&
                                  offsetof(struct KELP_GlobalProgressData, terminal_env) == 168
                              ? 1
                              : -1];

int main(void) {
    KELP_progress_global_init(10, 4, "from C ", 0);
    KELP_GlobalProgress.start_time = 0;
    KELP_progress_global(5);
    puts("");
    return 0;
}
