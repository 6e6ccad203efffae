# kelplib_check(TARGET...): clang-tidy on the targets' sources, with the settings of .clang-tidy.
function(kelplib_check)
    if(KELPLIB_TIDY)
        set_target_properties(${ARGN} PROPERTIES CXX_CLANG_TIDY "clang-tidy;--warnings-as-errors=*;--quiet")
    endif()
endfunction()
