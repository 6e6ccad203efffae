# What kelplib's own code is compiled with. Nothing of it reaches the code that links the library.
# Another compiler finds more to warn of, and no user's build may stop for that. So the presets treat warnings as errors
# (KNOWN) only with the compilers that every change is tried with.
set(KELPLIB_WERROR OFF CACHE STRING "Treat compiler warnings as errors: ON, OFF, or KNOWN (only with gcc 12 and clang 14)")
set(warnings_are_errors ${KELPLIB_WERROR})
if(KELPLIB_WERROR STREQUAL "KNOWN")
    string(REGEX MATCH "^(GNU 12|Clang 14)[.]" warnings_are_errors "${CMAKE_CXX_COMPILER_ID} ${CMAKE_CXX_COMPILER_VERSION}")
endif()
add_library(kelplib_warnings INTERFACE)
target_compile_options(kelplib_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    $<$<BOOL:${warnings_are_errors}>:-Werror>)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 14)
    target_compile_options(kelplib_warnings INTERFACE
        $<$<COMPILE_LANGUAGE:CXX>:-Wreserved-identifier;-Wreserved-macro-identifier>)
endif()
