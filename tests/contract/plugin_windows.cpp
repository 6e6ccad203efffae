#include <windows.h>

#include <cstdio>

#include "plugin.h"

bool callPlugin(const char* path, const char* name) {
    const HMODULE plugin = LoadLibraryA(path);
    if (plugin == nullptr) {
        static_cast<void>(std::fprintf(stderr, "error %lu\n", GetLastError()));
        return false;
    }
    const auto function = reinterpret_cast<void (*)()>(reinterpret_cast<void*>(GetProcAddress(plugin, name)));
    if (function != nullptr) {
        function();
    }
    return FreeLibrary(plugin) != 0 && function != nullptr;
}
