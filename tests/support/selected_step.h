#ifndef KELPLIB_TESTS_SELECTED_STEP_H
#define KELPLIB_TESTS_SELECTED_STEP_H

#include <stdlib.h>
#include <string.h>

/* KELPLIB_STEP selects a call of the system: "5" is the fifth of all, "rename 2" the second rename. */

/* Whether this is the selected call or, with and_later, a later one. */
static int is_due(const char* name, int and_later) {
    static long done = 0;
    const char* step = getenv("KELPLIB_STEP");
    const size_t length = strlen(name);
    if (step == NULL) {
        return 0;
    }
    if (strncmp(step, name, length) == 0 && step[length] == ' ') {
        step += length;
    } else if (*step < '0' || *step > '9') {
        return 0;
    }
    ++done;
    return and_later ? done >= strtol(step, NULL, 10) : done == strtol(step, NULL, 10);
}

#endif
