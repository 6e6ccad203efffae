# Requirements on the compiler, and paths that must not get into the library.
include(CheckCXXSourceCompiles)

# Tests the features instead of the compiler's version, because the standard library may come from elsewhere.
set(CMAKE_REQUIRED_FLAGS ${CMAKE_CXX17_STANDARD_COMPILE_OPTION})
check_cxx_source_compiles("
    #include <charconv>
    #include <filesystem>
    #include <string_view>
    int main() { return static_cast<int>(std::filesystem::path(std::string_view(\"a/b\")).native().size()) - 3; }"
    KELPLIB_HAS_CXX17)
unset(CMAKE_REQUIRED_FLAGS)
if(NOT KELPLIB_HAS_CXX17)
    # The next run may have another compiler and must test again.
    unset(KELPLIB_HAS_CXX17 CACHE)
    message(FATAL_ERROR "kelplib needs a C++17 compiler and standard library with <filesystem> (gcc 9, clang 9 or newer); "
        "this one cannot: ${CMAKE_CXX_COMPILER_ID} ${CMAKE_CXX_COMPILER_VERSION} (${CMAKE_CXX_COMPILER})")
endif()

# kelplib_hide_folders(TARGET): keeps the paths of the sources and of the build out of the library, so that builds in
# different folders are identical. Debug builds keep the paths for the debugger and for coverage.
function(kelplib_hide_folders target)
    foreach(folder IN ITEMS ${PROJECT_SOURCE_DIR} ${CMAKE_BINARY_DIR})
        target_compile_options(${target} PRIVATE $<$<NOT:$<CONFIG:Debug>>:-ffile-prefix-map=${folder}=.>)
    endforeach()
endfunction()
