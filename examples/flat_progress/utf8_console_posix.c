#include "utf8_console.h"

void use_utf8_console(void) {}
