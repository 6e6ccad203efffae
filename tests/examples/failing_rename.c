/* Loaded before the system's library, this lets the first renames of a process succeed, as many as RENAMES says, and the
 * others fail as on a broken disk. */
#define _POSIX_C_SOURCE 200809L

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>

int rename(const char* from, const char* to) {
    static long done = 0;
    const char* const most = getenv("RENAMES");
    if (most == NULL || done++ >= strtol(most, NULL, 10)) {
        errno = EIO;
        return -1;
    }
    return renameat(AT_FDCWD, from, AT_FDCWD, to);
}
