/* flat_progress: finds the lines of a text file that contain a byte outside ASCII.
 *
 * A C program that uses only the flat interface: it draws the bar with KELP_progress_global. */

/* For fseeko and ftello: the size of a file may not fit a long. */
#define _POSIX_C_SOURCE 200112L
#define _FILE_OFFSET_BITS 64

#include <kelplib/KelpProgress.h>

#include <errno.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "escaped.h"

/* The label, the bar and the longest time after it fit into 80 columns. */
enum { MAX_SHOWN = 10, BAR_WIDTH = 30, LABEL_WIDTH = 18 };

/* Exit statuses. */
enum { NONE_FOUND = 0, SOME_FOUND = 1, FAILURE = 2 };

static const char help[] =
    "usage: flat_progress FILE\n"
    "\n"
    "Finds the lines of a text file that contain a byte outside ASCII, and prints\n"
    "the first such byte of each of the first ten lines as FILE:LINE:COLUMN. If a\n"
    "file is called -h or --help, write ./-h or ./--help.\n"
    "\n"
    "  -h, --help  shows this help\n"
    "\n"
    "Exit status: 0 if every byte is ASCII, 1 if not, 2 if the file cannot be read\n"
    "or the results cannot be written.\n";

static const double SECONDS_BETWEEN_REDRAWS = 0.05;

struct finding {
    unsigned long long line;
    unsigned long long column; /* of the first such byte in the line, counted from 1 */
    unsigned char byte;
};

struct report {
    unsigned long long lines; /* complete lines so far */
    unsigned long long found; /* lines with a byte outside ASCII */
    struct finding shown[MAX_SHOWN];
    unsigned long long column;
    int line_is_found;
};

/* Returns the name with control characters escaped, to be freed by the caller; NULL if memory is exhausted. */
static char* printable(const char* name) {
    const size_t length = strlen(name);
    char* const text = malloc(4 * length + 1);
    if (text != NULL) {
        text[escaped(text, name, length)] = '\0';
    }
    return text;
}

static void examine(struct report* report, const unsigned char* bytes, size_t count) {
    for (size_t i = 0; i < count; ++i) {
        ++report->column;
        if (bytes[i] == '\n') {
            ++report->lines;
            report->column = 0;
            report->line_is_found = 0;
        } else if (bytes[i] > 127 && !report->line_is_found) {
            if (report->found < MAX_SHOWN) {
                const struct finding finding = {report->lines + 1, report->column, bytes[i]};
                report->shown[report->found] = finding;
            }
            ++report->found;
            report->line_is_found = 1;
        }
    }
}

/* Returns the size of the file; 0 if it is unknown. */
static double size_of(FILE* file) {
    off_t size = -1;
    if (fseeko(file, 0, SEEK_END) == 0) {
        size = ftello(file);
        rewind(file);
    }
    return size > 0 ? (double)size : 0.0;
}

/* Sets up the bar. Returns whether to draw it: on a console, and where MSYSTEM is set, because such a terminal looks like a
 * pipe to its programs. Any other output is meant for other programs. */
static int set_up_bar(const char* name, double size) {
    KELP_progress_global_init(size, BAR_WIDTH, "", 0);
    KELP_progress_global_set_text(name, LABEL_WIDTH);
    /* The bar puts no space between label and percentage. The rest of the text field is zero. */
    KELP_GlobalProgress.text[strlen(KELP_GlobalProgress.text)] = ' ';
    return size > 0.0 && (KELP_rewind_cursor(0) > 0 || KELP_GlobalProgress.terminal_env != NULL);
}

/* Reads the whole file and draws the progress. Returns 0, or the errno value of a failed read. */
static int examine_file(FILE* file, const char* name, struct report* report) {
    static unsigned char buffer[65536];
    const double size = size_of(file);
    const int shown = set_up_bar(name, size);
    double done = 0.0;
    double drawn = 0.0;
    size_t count;
    errno = 0;
    while ((count = fread(buffer, 1, sizeof buffer, file)) > 0) {
        examine(report, buffer, count);
        done += (double)count;
        if (shown && done < size && KELP_time_stamp() - drawn > SECONDS_BETWEEN_REDRAWS) {
            KELP_progress_global(done);
            drawn = KELP_time_stamp();
        }
    }
    if (ferror(file)) {
        const int reason = errno != 0 ? errno : EIO;
        if (drawn > 0.0) {
            putchar('\n');
        }
        return reason;
    }
    if (shown) {
        KELP_progress_global(size);
        putchar('\n');
    }
    return 0;
}

static void print(const char* name, const struct report* report) {
    const unsigned long long shown = report->found < MAX_SHOWN ? report->found : MAX_SHOWN;
    for (unsigned long long i = 0; i < shown; ++i) {
        const struct finding* finding = &report->shown[i];
        printf("%s:%llu:%llu: byte 0x%02X\n", name, finding->line, finding->column, finding->byte);
    }
    if (report->found > shown) {
        printf("... and %llu more lines\n", report->found - shown);
    }
    printf("lines with bytes outside ASCII: %llu\n", report->found);
}

static int fail(const char* problem, const char* name, int reason) {
    fflush(stdout);
    fprintf(stderr, "flat_progress: %s %s: %s\n", problem, name, strerror(reason));
    return FAILURE;
}

/* `path` opens the file, `name` is its printable form. */
static int report_on(const char* path, const char* name) {
    static struct report report;
    FILE* const file = fopen(path, "rb");
    int reason;
    if (file == NULL) {
        return fail("cannot open", name, errno);
    }
    reason = examine_file(file, name, &report);
    fclose(file);
    if (reason != 0) {
        return fail("cannot read", name, reason);
    }
    print(name, &report);
    return report.found > 0 ? SOME_FOUND : NONE_FOUND;
}

static int is_help(const char* argument) {
    return strcmp(argument, "-h") == 0 || strcmp(argument, "--help") == 0;
}

int main(int argc, char** argv) {
    char* name;
    int status = NONE_FOUND;
    if (argc != 2) {
        fprintf(stderr, "usage: flat_progress FILE\n");
        return FAILURE;
    }
    if (is_help(argv[1])) {
        fputs(help, stdout);
    } else {
        name = printable(argv[1]);
        if (name == NULL) {
            fprintf(stderr, "flat_progress: out of memory\n");
            return FAILURE;
        }
        status = report_on(argv[1], name);
        free(name);
    }
    if (status != FAILURE && (fflush(stdout) != 0 || ferror(stdout))) {
        fprintf(stderr, "flat_progress: cannot write standard output\n");
        return FAILURE;
    }
    return status;
}
