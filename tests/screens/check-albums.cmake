cmake_minimum_required(VERSION 3.25)
# Every folder of pictures belongs to a test program: a forgotten one would never be compared.
file(GLOB folders RELATIVE ${PICTURES} ${PICTURES}/*)
foreach(folder IN LISTS folders)
    if(NOT folder IN_LIST ALBUMS)
        message(SEND_ERROR "no test looks at pictures/${folder}")
    endif()
endforeach()
