# What kelplib's own code is compiled with. Nothing of it reaches the code that links the library.
add_library(kelplib_warnings INTERFACE)
target_compile_options(kelplib_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    $<$<BOOL:${KELPLIB_WERROR}>:-Werror>)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 14)
    target_compile_options(kelplib_warnings INTERFACE
        $<$<COMPILE_LANGUAGE:CXX>:-Wreserved-identifier;-Wreserved-macro-identifier>)
endif()
