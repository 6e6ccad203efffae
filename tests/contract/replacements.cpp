// A shared library that replaces functions of the standard library and of the C library, as allocators and checkers do.
#include <cstdlib>
#include <cstring>
#include <new>

extern "C" {
// Read by the program.
int allocationsByReplacement = 0;
}

void* operator new(std::size_t size) {
    ++allocationsByReplacement;
    if (void* const memory = std::malloc(size > 0 ? size : 1)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}

extern "C" char* getenv(const char* name) noexcept {
    static char level[] = "12";
    return std::strcmp(name, "K_VERBOSITY") == 0 ? level : nullptr;
}
