# What kelplib's own code is compiled with. Nothing of it reaches the code that links the library.
add_library(kelplib_warnings INTERFACE)
target_compile_options(kelplib_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    $<$<AND:$<COMPILE_LANG_AND_ID:CXX,Clang>,$<VERSION_GREATER_EQUAL:$<CXX_COMPILER_VERSION>,14>>:-Wreserved-identifier;-Wreserved-macro-identifier>
    $<$<BOOL:${KELPLIB_WERROR}>:-Werror>)
