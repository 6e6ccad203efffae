// A shared library that replaces a function of the C library, as checkers do, and with allocation_count.cpp operator new, as
// allocators do.
#include <cstdlib>
#include <cstring>

extern "C" char* getenv(const char* name) noexcept {
    static char level[] = "12";
    return std::strcmp(name, "K_VERBOSITY") == 0 ? level : nullptr;
}
