// Checks that a program uses the replacements of a library that it links after kelplib.
#include <kelplib/Kelp.h>

#include <cstdio>
#include <new>

#include "allocation_count.h"

int main() {
    const std::size_t before = allocationCount();
    ::operator delete(::operator new(1));
    const bool replacesNew = allocationCount() > before;
    if (!replacesNew) {
        std::puts("operator new is not the replacement");
    }
    const bool replacesGetenv = Kelp::verbosity() == 12;
    if (!replacesGetenv) {
        std::puts("getenv is not the replacement");
    }
    return replacesNew && replacesGetenv ? 0 : 1;
}
