# How the shared library resists misuse of its memory, where the compiler can: tools are given what they print by their
# users. Sanitizers watch the memory themselves. Windows gets its own by the linker: guarded stacks would need one more DLL.
include(CheckCXXCompilerFlag)

if(CMAKE_CXX_FLAGS MATCHES "sanitize")
    set(unless_sanitized OFF)
else()
    set(unless_sanitized ON)
endif()
option(KELPLIB_HARDENING "Guarded stacks, checked calls, guarded jumps, read-only tables" ${unless_sanitized})

# kelplib_harden_code(TARGET): what its code is compiled with.
function(kelplib_harden_code target)
    if(NOT KELPLIB_HARDENING OR WIN32)
        return()
    endif()
    foreach(flag IN ITEMS -fstack-protector-strong -fcf-protection)
        string(MAKE_C_IDENTIFIER KELPLIB_HAS${flag} known)
        check_cxx_compiler_flag(-Werror\ ${flag} ${known})
        if(${known})
            target_compile_options(${target} PRIVATE ${flag})
        endif()
    endforeach()
    # The C library checks calls only in optimised code. A level that was chosen for the whole build stays.
    if(NOT CMAKE_CXX_FLAGS MATCHES "_FORTIFY_SOURCE")
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
