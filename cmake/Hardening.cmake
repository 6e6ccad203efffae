# How the shared library resists misuse of its memory, where the compiler can: tools are given what they print by their
# users. Sanitizers watch the memory themselves.
#
# Two guards take more than this library. -fcf-protection marks the targets of its jumps, but the linker declares a library
# guarded (IBT, SHSTK) only if the C library's start files are. Those of Debian 12 and 13 are not, and their _init has no mark,
# so -z ibt would be wrong there. On Windows only clang has a control-flow guard (-mguard=cf), and mingw-w64 means gcc here.
include(CheckCXXCompilerFlag)
include(CheckCXXSourceCompiles)

if(CMAKE_CXX_FLAGS MATCHES "sanitize")
    set(unless_sanitized OFF)
else()
    set(unless_sanitized ON)
endif()
option(KELPLIB_HARDENING "Guarded stacks, checked calls, marked targets of jumps, read-only tables" ${unless_sanitized})

# What guarded stacks call is in the C library, in that of mingw-w64 from release 11 (Debian 13) on. Before, gcc's libssp has
# it, which would be one more DLL beside every tool. Linked in, it makes each start under wine 40 ms longer.
if(WIN32)
    check_cxx_source_compiles("extern \"C\" void __stack_chk_fail(); int main() { __stack_chk_fail(); }" KELPLIB_HAS_STACK_GUARD)
else()
    set(KELPLIB_HAS_STACK_GUARD ON)
endif()

# kelplib_harden_code(TARGET): what its code is compiled with.
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
    # The C library checks calls only in optimised code. A level that was chosen for the whole build stays.
    if(NOT WIN32 AND NOT CMAKE_CXX_FLAGS MATCHES "_FORTIFY_SOURCE")
        target_compile_options(${target} PRIVATE
            $<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>)
    endif()
endfunction()

# kelplib_harden_library(TARGET): what it is linked with.
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
