# find_package(kelplib) reads this file.
if(CMAKE_VERSION VERSION_LESS 3.23)
    set(kelplib_FOUND FALSE)
    set(kelplib_NOT_FOUND_MESSAGE "kelplib needs CMake 3.23 or newer; this is ${CMAKE_VERSION}.")
    return()
endif()
include(${CMAKE_CURRENT_LIST_DIR}/kelplibTargets.cmake)
