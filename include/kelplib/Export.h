#ifndef KELPLIB_EXPORT_H
#define KELPLIB_EXPORT_H

/// \file
/// The export mark of kelplib's public names. Include the other headers instead of this one.
///
/// Code that links the shared library needs to define nothing. KELPLIB_BUILDING is set only while the library itself is
/// compiled, KELPLIB_STATIC only by programs that link the library's objects directly.

#if defined(__cplusplus) && __cplusplus < 201703L
#error "kelplib needs C++17: compile with -std=c++17 or newer"
#endif

/// \def KELP_API
/// Marks what the shared library hands out.

#if defined(KELPLIB_STATIC)
#define KELP_API
#elif !defined(_WIN32)
#define KELP_API __attribute__((visibility("default")))
#elif defined(KELPLIB_BUILDING)
#define KELP_API __declspec(dllexport)
#else
#define KELP_API __declspec(dllimport)
#endif

#endif
