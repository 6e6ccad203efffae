/* The names of the library, with settings in another order. */

struct KELP_GlobalProgressData {
    int width;
    double total;
    char text[256];
};
extern struct KELP_GlobalProgressData KELP_GlobalProgress;
struct KELP_GlobalProgressData KELP_GlobalProgress = {0, 0.0, ""};

double KELP_time_stamp(void);
int KELP_rewind_cursor(unsigned int lines);
int KELP_progress_global_init(double total, int width, const char* text, int smile);
int KELP_progress_global(double value);

double KELP_time_stamp(void) {
    return 1.0;
}

int KELP_rewind_cursor(unsigned int lines) {
    return (int)lines;
}

int KELP_progress_global_init(double total, int width, const char* text, int smile) {
    KELP_GlobalProgress.total = total;
    KELP_GlobalProgress.width = width;
    KELP_GlobalProgress.text[0] = text[0];
    return smile;
}

int KELP_progress_global(double value) {
    return (int)value;
}
