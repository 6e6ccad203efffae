#ifndef KELPLIB_EXPORT_H
#define KELPLIB_EXPORT_H

/// \file
/// The macro that exports kelplib's public names. Include the other headers instead of this one.
///
/// Programs that link the shared library define nothing. The build defines KELPLIB_BUILDING while it compiles the library
/// itself; a program that links the library's object files directly defines KELPLIB_STATIC.

#if defined(__cplusplus) && __cplusplus < 201703L
#error "kelplib needs C++17: compile with -std=c++17 or newer"
#endif

/// \def KELP_API
/// Marks a declaration as exported from the shared library.

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
