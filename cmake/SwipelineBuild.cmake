# How everything of ours is compiled.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_package(Threads REQUIRED)
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets Test)
find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
    set(CMAKE_C_COMPILER_LAUNCHER ${CCACHE})
endif()

# Carried by every target of ours: include paths start at the root of the tree.
add_library(swipeline_flags INTERFACE)
target_include_directories(swipeline_flags INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(swipeline_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor
    -Woverloaded-virtual -Wnull-dereference -Wformat=2 -Werror)
target_compile_definitions(swipeline_flags INTERFACE
    QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_FOREACH QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_link_libraries(swipeline_flags INTERFACE Threads::Threads)
# Inlining everything, gcc 12 takes std::string's own copying for an overlap (its bug 105651) and sees
# null pointers in std::vector.
target_compile_options(swipeline_flags INTERFACE
    "$<$<AND:$<CONFIG:Release>,$<COMPILE_LANG_AND_ID:CXX,GNU>>:-Wno-restrict;-Wno-null-dereference>")
if(SWIPELINE_SANITIZE)
    target_compile_options(swipeline_flags INTERFACE
        -fsanitize=${SWIPELINE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(swipeline_flags INTERFACE -fsanitize=${SWIPELINE_SANITIZE})
    # These analyses of gcc are confused by the instrumentation; the dev build makes them.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(swipeline_flags INTERFACE -Wno-null-dereference
            -Wno-stringop-overread -Wno-stringop-overflow -Wno-array-bounds
            -Wno-maybe-uninitialized)
    endif()
endif()

# Tests labelled tsan make sense under the thread sanitizer: they run on std::thread and need no
# widgets. This target builds them and nothing else.
add_custom_target(tsan_tests)

# swipeline_library(NAME SOURCES ... LINK ...): a static library of ours.
function(swipeline_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(${name} PUBLIC swipeline_flags ${ARG_LINK})
endfunction()

# A file that does not register its object would be built and not run.
function(swipeline_check_test_objects)
    list(FILTER ARGN INCLUDE REGEX "^tst_.*[.]cpp$")
    foreach(source ${ARGN})
        file(STRINGS ${source} registered REGEX "^TEST_OBJECT[(]")
        if(NOT registered)
            message(FATAL_ERROR "${CMAKE_CURRENT_SOURCE_DIR}/${source} has no TEST_OBJECT")
        endif()
    endforeach()
endfunction()

# swipeline_test(NAME SOURCES ... LINK ... [LABELS ...] [ENVIRONMENT ...] [TIMEOUT seconds]):
# a Qt Test program that CTest runs without a display. With ${TEST_OBJECTS} among its sources it has a
# test object in each of its files tst_*.cpp (tests/shared/testobjects.h).
function(swipeline_test name)
    cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;LINK;LABELS;ENVIRONMENT" ${ARGN})
    if("${TEST_OBJECTS}" IN_LIST ARG_SOURCES)
        swipeline_check_test_objects(${ARG_SOURCES})
    endif()
    add_executable(${name} ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(${name} PRIVATE swipeline_flags Qt6::Test ${ARG_LINK})
    target_compile_definitions(${name} PRIVATE
        SWIPELINE_SOURCE_DIR="${CMAKE_SOURCE_DIR}" SWIPELINE_BINARY_DIR="${CMAKE_BINARY_DIR}")
    add_test(NAME ${name} COMMAND ${name})
    if("tsan" IN_LIST ARG_LABELS)
        add_dependencies(tsan_tests ${name})
    endif()
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    set_tests_properties(${name} PROPERTIES
        TIMEOUT ${ARG_TIMEOUT}
        LABELS "${ARG_LABELS}"
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;OMP_THREAD_LIMIT=1;${ARG_ENVIRONMENT}")
endfunction()
