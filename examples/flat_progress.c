/* flat_progress: finds the lines of a text that hold a byte outside ASCII.
 *
 * A C program on the flat interface alone: it draws the bar through KELP_progress_global and knows nothing else of the
 * library. */

/* fseeko and ftello, for files that a long cannot measure. */
#define _POSIX_C_SOURCE 200112L
#define _FILE_OFFSET_BITS 64

#include <kelplib/KelpProgress.h>

#include <errno.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "common/escaped.h"
#include "common/utf8_console.h"

/* The bar, its label and the longest time after it fit into 80 columns. */
enum { MOST_SHOWN = 10, BAR_WIDTH = 30, LABEL_WIDTH = 18 };

/* The exit status. */
enum { NONE_FOUND = 0, SOME_FOUND = 1, TROUBLE = 2 };

static const char help[] =
    "usage: flat_progress FILE\n"
    "\n"
    "Finds the lines of a text that hold a byte outside ASCII, and shows the first\n"
    "such byte of the first ten of them as FILE:LINE:COLUMN. A file whose name is a\n"
    "flag needs its folder, as in ./-h.\n"
    "\n"
    "  -h, --help  shows this help\n"
    "\n"
    "Exit status: 0 every byte is ASCII, 1 some are not, 2 the file cannot be read\n"
    "or the findings cannot be written.\n";

static const double SECONDS_BETWEEN_REDRAWS = 0.05;

struct finding {
    unsigned long long line;
    unsigned long long column; /* of the line's first such byte, from 1 */
    unsigned char byte;
};

struct report {
    unsigned long long lines; /* line ends so far */
    unsigned long long found; /* lines with such a byte */
    struct finding shown[MOST_SHOWN];
    unsigned long long column;
    int line_is_found;
};

/* A name as a terminal may get it; NULL without memory. */
static char* printable(const char* name) {
    const size_t length = strlen(name);
    char* const text = malloc(4 * length + 1);
    if (text != NULL) {
        text[common_escaped(text, name, length)] = '\0';
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
            if (report->found < MOST_SHOWN) {
                const struct finding finding = {report->lines + 1, report->column, bytes[i]};
                report->shown[report->found] = finding;
            }
            ++report->found;
            report->line_is_found = 1;
        }
    }
}

/* The number of bytes that are left to read; 0 when the file does not tell. */
static double size_of(FILE* file) {
    off_t size = -1;
    if (fseeko(file, 0, SEEK_END) == 0) {
        size = ftello(file);
        rewind(file);
    }
    return size > 0 ? (double)size : 0.0;
}

/* Sets the bar up. Returns whether it is to be shown: on a console, and where MSYSTEM tells of a terminal that looks like
 * a pipe to its programs. Elsewhere the output is for other programs to read. */
static int set_bar_up(const char* name, double size) {
    KELP_progress_global_init(size, BAR_WIDTH, "", 0);
    KELP_progress_global_set_text(name, LABEL_WIDTH);
    /* The percentage follows the label directly; a blank keeps them apart. The rest of the field is zero. */
    KELP_GlobalProgress.text[strlen(KELP_GlobalProgress.text)] = ' ';
    return size > 0.0 && (KELP_rewind_cursor(0) > 0 || KELP_GlobalProgress.terminal_env != NULL);
}

/* Reads the whole file and shows how far it is. Returns 0, or the system's reason for not reading on. */
static int examine_file(FILE* file, const char* name, struct report* report) {
    static unsigned char buffer[65536];
    const double size = size_of(file);
    const int shown = set_bar_up(name, size);
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
    const unsigned long long shown = report->found < MOST_SHOWN ? report->found : MOST_SHOWN;
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
    return TROUBLE;
}

/* path names the file, name shows it. */
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
    common_use_utf8_console();
    if (argc != 2) {
        fprintf(stderr, "usage: flat_progress FILE\n");
        return TROUBLE;
    }
    if (is_help(argv[1])) {
        fputs(help, stdout);
    } else {
        name = printable(argv[1]);
        if (name == NULL) {
            fprintf(stderr, "flat_progress: out of memory\n");
            return TROUBLE;
        }
        status = report_on(argv[1], name);
        free(name);
    }
    if (status != TROUBLE && (fflush(stdout) != 0 || ferror(stdout))) {
        fprintf(stderr, "flat_progress: standard output cannot be written\n");
        return TROUBLE;
    }
    return status;
}
