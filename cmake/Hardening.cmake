# Hardens the shared library where the compiler supports it, because tools print text from their users. Off by default in
# builds with sanitizers, which watch the memory themselves.
#
# Two guards cannot be complete. -fcf-protection marks the targets of indirect jumps, but the linker marks a library as
# guarded (IBT, SHSTK) only if the C library's start files are. Those of Debian 12 and 13 are not, and their _init lacks the
# mark, so -z ibt would be wrong. On Windows only clang has a control-flow guard (-mguard=cf), and this project uses gcc
# there.
include(CheckCXXCompilerFlag)
include(CheckCXXSourceCompiles)

if(CMAKE_CXX_FLAGS MATCHES "sanitize")
    set(unless_sanitized OFF)
else()
    set(unless_sanitized ON)
endif()
option(KELPLIB_HARDENING "Stack protector, checked calls, marked jump targets, read-only relocations" ${unless_sanitized})

# -fstack-protector needs __stack_chk_fail. mingw-w64's C library has it from release 11 (Debian 13) on. Before that only
# gcc's libssp has it, which would add a DLL beside every tool or, linked statically, 40 ms to each start under wine.
if(WIN32)
    check_cxx_source_compiles("extern \"C\" void __stack_chk_fail(); int main() { __stack_chk_fail(); }" KELPLIB_HAS_STACK_GUARD)
else()
    set(KELPLIB_HAS_STACK_GUARD ON)
endif()

# kelplib_harden_code(TARGET): adds the compiler's guards.
function(kelplib_harden_code target)
    if(NOT KELPLIB_HARDENING)
        return()
    endif()
    set(flags)
    if(KELPLIB_HAS_STACK_GUARD)
        list(APPEND flags -fstack-protector-strong)
    endif()
    if(NOT WIN32)
        list(APPEND flags -fcf-protection)
    endif()
    foreach(flag IN LISTS flags)
        string(MAKE_C_IDENTIFIER KELPLIB_HAS${flag} known)
        check_cxx_compiler_flag(-Werror\ ${flag} ${known})
        if(${known})
            target_compile_options(${target} PRIVATE ${flag})
        endif()
    endforeach()
    # libstdc++ checks indices and empty containers. This also shortens the start of a tool: the members of std::string become part
    # of the library, and the loader does not look them up.
    target_compile_definitions(${target} PRIVATE _GLIBCXX_ASSERTIONS)
    # The C library checks calls only in optimised code. A level set for the whole build takes precedence.
    if(NOT WIN32 AND NOT CMAKE_CXX_FLAGS MATCHES "_FORTIFY_SOURCE")
        target_compile_options(${target} PRIVATE
            $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>)
    endif()
endfunction()

# kelplib_harden_library(TARGET): adds the linker's guards.
function(kelplib_harden_library target)
    if(NOT KELPLIB_HARDENING)
        return()
    endif()
    if(WIN32)
        target_link_options(${target} PRIVATE LINKER:--dynamicbase,--nxcompat,--high-entropy-va)
    else()
        target_link_options(${target} PRIVATE LINKER:-z,relro,-z,now,-z,noexecstack)
    endif()
endfunction()
