# The warnings for kelplib's own code. Programs that link the library do not get them.
# Other compilers warn about other things, and a user's build must not fail for that. So the presets treat warnings as errors
# (KNOWN) only with the compilers of CI.
set(KELPLIB_WERROR OFF CACHE STRING "Treat compiler warnings as errors: ON, OFF, or KNOWN (only with gcc 12 and clang 14)")
set(warnings_are_errors ${KELPLIB_WERROR})
if(KELPLIB_WERROR STREQUAL "KNOWN")
    string(REGEX MATCH "^(GNU 12|Clang 14)[.]" warnings_are_errors "${CMAKE_CXX_COMPILER_ID} ${CMAKE_CXX_COMPILER_VERSION}")
endif()
add_library(kelplib_warnings INTERFACE)
# Constructors take parameters named like the members they set. gcc's plain -Wshadow warns about that.
target_compile_options(kelplib_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion
    $<IF:$<CXX_COMPILER_ID:GNU>,-Wshadow=local,-Wshadow>
    $<$<BOOL:${warnings_are_errors}>:-Werror>)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 14)
    target_compile_options(kelplib_warnings INTERFACE
        -Wdocumentation $<$<COMPILE_LANGUAGE:CXX>:-Wreserved-identifier;-Wreserved-macro-identifier>)
endif()
