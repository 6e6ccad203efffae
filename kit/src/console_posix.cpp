#include <fcntl.h>
#include <unistd.h>

#include "console.h"

void Kelpkit::useUtf8Console() {}

void Kelpkit::restoreConsole() {}

bool Kelpkit::isStandardOutputOpen() {
    return fcntl(STDOUT_FILENO, F_GETFD) != -1;
}
