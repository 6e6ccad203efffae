#include "utf8_console.h"

void common_use_utf8_console(void) {}
