/* Loaded with LD_PRELOAD, this acts right before one of the calls with which the process creates, writes, synchronises, closes,
 * renames or removes a file. Calls on the standard streams and on files opened for reading do not count.
 *
 * KELPLIB_STEP selects the call: its number among all these calls, counted from 1, or a function and the number of its call,
 * as in "renameat2 2". KELPLIB_DEED is the action:
 *   kill     ends the process with SIGKILL
 *   fail     lets this and all later calls (of the function, if one is named) fail with EIO, as on a broken disk
 *   once     lets this call fail with EIO
 *   signal   lets this call fail with EINTR, as if a signal had interrupted it
 *   short    lets this call of write() write a single byte
 *   full     lets this and all later calls fail with ENOSPC
 *   refuse   likewise with EINVAL, as on a file system that cannot rename without replacing
 *   forbid   lets renameat2, linkat, rename and the first unlink fail with the error numbers in KELPLIB_STEP, as in "22 1 0";
 *            0 is none
 *   list     appends the name of each call to the file KELPLIB_LIST; needs no step
 * Anything else is a shell command to run. */
#define _GNU_SOURCE

#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

#include "../support/selected_step.h"

static int real(const char* name, void* function, size_t size) {
    void* const found = dlsym(RTLD_NEXT, name);
    memcpy(function, &found, size);
    return found != NULL;
}

/* Whether the descriptor is that of a file for writing, and not a standard stream. */
static int counts(int descriptor) {
    return descriptor > STDERR_FILENO && (fcntl(descriptor, F_GETFL) & O_ACCMODE) == O_WRONLY;
}

static int append(const char* name) {
    const char* const path = getenv("KELPLIB_LIST");
    FILE* const list = path != NULL ? fopen(path, "r+") : NULL;
    if (list != NULL) {
        fseek(list, 0, SEEK_END);
        fprintf(list, "%s\n", name);
        fclose(list);
    }
    return 0;
}

/* Returns the errno value of a deed that lets calls fail, 0 for other deeds. */
static int reason_of(const char* deed) {
    if (strcmp(deed, "fail") == 0 || strcmp(deed, "once") == 0) {
        return EIO;
    }
    if (strcmp(deed, "full") == 0) {
        return ENOSPC;
    }
    if (strcmp(deed, "signal") == 0) {
        return EINTR;
    }
    return strcmp(deed, "refuse") == 0 ? EINVAL : 0;
}

static int forbidden(const char* name) {
    static int unlinked = 0;
    const char* const calls[] = {"renameat2", "linkat", "rename", "unlink"};
    if (strcmp(name, "unlink") == 0 && unlinked++ > 0) {
        return 0;
    }
    char* rest = getenv("KELPLIB_STEP");
    for (size_t i = 0; rest != NULL && i < sizeof calls / sizeof *calls; ++i) {
        const long reason = strtol(rest, &rest, 10);
        if (strcmp(name, calls[i]) == 0) {
            return (int)reason;
        }
    }
    return 0;
}

/* Acts if the call is selected. Returns 0, or the errno value with which the call has to fail. */
static int before(const char* name) {
    const char* const deed = getenv("KELPLIB_DEED");
    if (deed == NULL) {
        return 0;
    }
    if (strcmp(deed, "forbid") == 0) {
        return forbidden(name);
    }
    if (strcmp(deed, "list") == 0) {
        return append(name);
    }
    const int reason = reason_of(deed);
    const int once = strcmp(deed, "once") == 0 || strcmp(deed, "signal") == 0;
    if (!is_due(name, reason != 0 && !once)) {
        return 0;
    }
    if (reason != 0) {
        return reason;
    }
    if (strcmp(deed, "kill") == 0) {
        raise(SIGKILL);
    }
    unsetenv("LD_PRELOAD");
    return system(deed) == 0 ? 0 : ECHILD; /* NOLINT(cert-env33-c): a test's own command */
}

/* Whether the call has to fail; errno is set then. */
static int fails(const char* name, void* function, size_t size) {
    const int reason = before(name);
    const int found = real(name, function, size);
    errno = reason != 0 ? reason : errno;
    return reason != 0 || !found;
}

/* NOLINTBEGIN(readability-inconsistent-declaration-parameter-name) */

int open(const char* path, int flags, ...) {
    int (*next)(const char*, int, ...);
    unsigned int mode = 0;
    va_list rest;
    va_start(rest, flags);
    if ((flags & O_CREAT) != 0) {
        mode = va_arg(rest, unsigned int);
    }
    va_end(rest);
    /* Not the counts of a coverage build, which are read too. */
    const int creates = (flags & O_CREAT) != 0 && (flags & O_ACCMODE) == O_WRONLY;
    if (creates ? fails("open", &next, sizeof next) : !real("open", &next, sizeof next)) {
        return -1;
    }
    return next(path, flags, mode);
}

ssize_t write(int descriptor, const void* data, size_t count) {
    ssize_t (*next)(int, const void*, size_t);
    const char* const deed = getenv("KELPLIB_DEED");
    if (deed != NULL && strcmp(deed, "short") == 0 && counts(descriptor)) {
        return real("write", &next, sizeof next) ? next(descriptor, data, is_due("write", 0) ? 1 : count) : -1;
    }
    if (counts(descriptor) ? fails("write", &next, sizeof next) : !real("write", &next, sizeof next)) {
        return -1;
    }
    return next(descriptor, data, count);
}

int fchmod(int descriptor, mode_t mode) {
    int (*next)(int, mode_t);
    return fails("fchmod", &next, sizeof next) ? -1 : next(descriptor, mode);
}

int fsync(int descriptor) {
    int (*next)(int);
    return fails("fsync", &next, sizeof next) ? -1 : next(descriptor);
}

/* A close that fails closes the file all the same. */
int close(int descriptor) {
    int (*next)(int);
    const int reason = counts(descriptor) ? before("close") : 0;
    if (!real("close", &next, sizeof next)) {
        return -1;
    }
    const int result = next(descriptor);
    if (reason != 0) {
        errno = reason;
        return -1;
    }
    return result;
}

int renameat2(int from_folder, const char* from, int to_folder, const char* to, unsigned int flags) {
    int (*next)(int, const char*, int, const char*, unsigned int);
    return fails("renameat2", &next, sizeof next) ? -1 : next(from_folder, from, to_folder, to, flags);
}

int linkat(int from_folder, const char* from, int to_folder, const char* to, int flags) {
    int (*next)(int, const char*, int, const char*, int);
    return fails("linkat", &next, sizeof next) ? -1 : next(from_folder, from, to_folder, to, flags);
}

int rename(const char* from, const char* to) {
    int (*next)(const char*, const char*);
    return fails("rename", &next, sizeof next) ? -1 : next(from, to);
}

int unlink(const char* path) {
    int (*next)(const char*);
    return fails("unlink", &next, sizeof next) ? -1 : next(path);
}

/* NOLINTEND(readability-inconsistent-declaration-parameter-name) */
