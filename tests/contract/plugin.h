#ifndef KELPLIB_TESTS_CONTRACT_PLUGIN_H
#define KELPLIB_TESTS_CONTRACT_PLUGIN_H

/// Loads the shared library `path`, calls its function `name`, which takes and returns nothing, and unloads the library.
/// \returns whether the library has such a function
bool callPlugin(const char* path, const char* name);

#endif
