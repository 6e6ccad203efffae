# Compares a saved help screen with the one that the tool prints now:
#
#     cmake -P CompareScreens.cmake -- SAVED PRINTED BUILD_FOLDER TARGET
#
# Fails with the first line that differs and the command that renews SAVED. Line ends may be those of Windows.
math(EXPR last "${CMAKE_ARGC} - 1")
set(words)
set(after_dashes OFF)
foreach(number RANGE ${last})
    if(after_dashes)
        list(APPEND words "${CMAKE_ARGV${number}}")
    elseif(CMAKE_ARGV${number} STREQUAL "--")
        set(after_dashes ON)
    endif()
endforeach()
list(POP_FRONT words saved printed build target)

set(renew "To renew it: cmake --build \"${build}\" --target ${target}")
if(NOT EXISTS ${saved})
    message(FATAL_ERROR "${saved} is missing.\n${renew}")
endif()

# Reads the next line of the text in VARIABLE, and removes it there.
function(next_line variable line)
    string(FIND "${${variable}}" "\n" end)
    if(end EQUAL -1)
        set(${line} "${${variable}}" PARENT_SCOPE)
        set(${variable} "" PARENT_SCOPE)
    else()
        string(SUBSTRING "${${variable}}" 0 ${end} text)
        math(EXPR end "${end} + 1")
        string(SUBSTRING "${${variable}}" ${end} -1 rest)
        set(${line} "${text}" PARENT_SCOPE)
        set(${variable} "${rest}" PARENT_SCOPE)
    endif()
endfunction()

file(READ ${saved} old)
file(READ ${printed} new)
string(REPLACE "\r\n" "\n" old "${old}")
string(REPLACE "\r\n" "\n" new "${new}")
set(number 0)
while(NOT old STREQUAL new)
    math(EXPR number "${number} + 1")
    next_line(old old_line)
    next_line(new new_line)
    if(NOT old_line STREQUAL new_line)
        message(FATAL_ERROR
            "The help screen is no longer ${saved}. Line ${number}\n  saved: ${old_line}\n  now: ${new_line}\n${renew}")
    endif()
endwhile()
