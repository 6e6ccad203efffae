// Checks that a program uses the replacements of a library that it links after kelplib.
#include <kelplib/Kelp.h>

#include <cstdio>
#include <new>

extern "C" int allocationsByReplacement;

int main() {
    const int before = allocationsByReplacement;
    ::operator delete(::operator new(1));
    const bool replacesNew = allocationsByReplacement > before;
    if (!replacesNew) {
        std::puts("operator new is not the replacement");
    }
    const bool replacesGetenv = Kelp::verbosity() == 12;
    if (!replacesGetenv) {
        std::puts("getenv is not the replacement");
    }
    return replacesNew && replacesGetenv ? 0 : 1;
}
