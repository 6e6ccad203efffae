# What the compiler has to be able to do, and what it shall keep to itself.
include(CheckCXXSourceCompiles)

# Asked of the compiler instead of its version: the standard library may come from elsewhere.
set(CMAKE_REQUIRED_FLAGS ${CMAKE_CXX17_STANDARD_COMPILE_OPTION})
check_cxx_source_compiles("
    #include <charconv>
    #include <filesystem>
    #include <string_view>
    int main() { return static_cast<int>(std::filesystem::path(std::string_view(\"a/b\")).native().size()) - 3; }"
    KELPLIB_HAS_CXX17)
unset(CMAKE_REQUIRED_FLAGS)
if(NOT KELPLIB_HAS_CXX17)
    # Asked anew by the next run, which may have another compiler.
    unset(KELPLIB_HAS_CXX17 CACHE)
    message(FATAL_ERROR "kelplib needs a C++17 compiler and standard library with <filesystem> (gcc 9, clang 9 or newer); "
        "this one cannot: ${CMAKE_CXX_COMPILER_ID} ${CMAKE_CXX_COMPILER_VERSION} (${CMAKE_CXX_COMPILER})")
endif()

# kelplib_hide_folders(TARGET): the folders of the sources and of the build do not get into the library, so that builds in
# two places are the same, byte for byte. Debug builds keep them, for the debugger and the counting of executed lines.
function(kelplib_hide_folders target)
    foreach(folder IN ITEMS ${PROJECT_SOURCE_DIR} ${CMAKE_BINARY_DIR})
        target_compile_options(${target} PRIVATE $<$<NOT:$<CONFIG:Debug>>:-ffile-prefix-map=${folder}=.>)
    endforeach()
endfunction()
