#include <dlfcn.h>

#include <cstdio>

#include "plugin.h"

bool callPlugin(const char* path, const char* name) {
    void* const plugin = dlopen(path, RTLD_NOW);
    if (plugin == nullptr) {
        static_cast<void>(std::fprintf(stderr, "%s\n", dlerror()));
        return false;
    }
    const auto function = reinterpret_cast<void (*)()>(dlsym(plugin, name));
    if (function != nullptr) {
        function();
    }
    return dlclose(plugin) == 0 && function != nullptr;
}
