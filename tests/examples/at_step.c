/* Loaded with LD_PRELOAD, this acts right before one of the calls with which the process creates, renames, synchronises or
 * removes a file.
 *
 * KELPLIB_STEP selects the call: its number among all these calls, counted from 1, or a function and the number of its call,
 * as in "renameat2 2". KELPLIB_DEED is the action:
 *   kill     ends the process with SIGKILL
 *   fail     lets this and all later calls (of the function, if one is named) fail with EIO, as on a broken disk
 *   refuse   likewise with EINVAL, as on a file system that cannot rename without replacing
 * Anything else is a shell command to run. */
#define _GNU_SOURCE

#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <stdarg.h>
#include <stdlib.h>
#include <string.h>
#include <sys/types.h>
#include <unistd.h>

#include "../support/selected_step.h"

/* Acts if the call is selected. Returns 0, or the errno value with which the call has to fail. */
static int before(const char* name) {
    const char* const deed = getenv("KELPLIB_DEED");
    const int fails = deed != NULL && strcmp(deed, "fail") == 0;
    const int refuses = deed != NULL && strcmp(deed, "refuse") == 0;
    if (deed == NULL || !is_due(name, fails || refuses)) {
        return 0;
    }
    if (fails || refuses) {
        return fails ? EIO : EINVAL;
    }
    if (strcmp(deed, "kill") == 0) {
        raise(SIGKILL);
    }
    unsetenv("LD_PRELOAD");
    return system(deed) == 0 ? 0 : ECHILD; /* NOLINT(cert-env33-c): a test's own command */
}

static int real(const char* name, void* function, size_t size) {
    void* const found = dlsym(RTLD_NEXT, name);
    memcpy(function, &found, size);
    return found != NULL;
}

int open(const char* path, int flags, ...) { /* NOLINT(readability-inconsistent-declaration-parameter-name) */
    int (*next)(const char*, int, ...);
    int reason = (flags & O_CREAT) != 0 ? before("open") : 0;
    unsigned int mode = 0;
    va_list rest;
    va_start(rest, flags);
    if ((flags & O_CREAT) != 0) {
        mode = va_arg(rest, unsigned int);
    }
    va_end(rest);
    if (reason != 0 || !real("open", &next, sizeof next)) {
        errno = reason;
        return -1;
    }
    return next(path, flags, mode);
}

int renameat2(int from_folder, const char* from, int to_folder, const char* to, unsigned int flags) {
    int (*next)(int, const char*, int, const char*, unsigned int);
    const int reason = before("renameat2");
    if (reason != 0 || !real("renameat2", &next, sizeof next)) {
        errno = reason;
        return -1;
    }
    return next(from_folder, from, to_folder, to, flags);
}

int fsync(int descriptor) { /* NOLINT(readability-inconsistent-declaration-parameter-name) */
    int (*next)(int);
    const int reason = before("fsync");
    if (reason != 0 || !real("fsync", &next, sizeof next)) {
        errno = reason;
        return -1;
    }
    return next(descriptor);
}

int unlink(const char* path) { /* NOLINT(readability-inconsistent-declaration-parameter-name) */
    int (*next)(const char*);
    const int reason = before("unlink");
    if (reason != 0 || !real("unlink", &next, sizeof next)) {
        errno = reason;
        return -1;
    }
    return next(path);
}
