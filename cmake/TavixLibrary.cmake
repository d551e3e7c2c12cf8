# Who may use whom. A dependency outside this table stops the configure step; an include outside it does not
# compile, because each library is seen only through an include folder of its own.
set(TAVIX_base_MAY_USE)
set(TAVIX_testsupport_MAY_USE)
set(TAVIX_core_MAY_USE base)
set(TAVIX_reel_MAY_USE base core)
set(TAVIX_imaging_MAY_USE base)
set(TAVIX_system_MAY_USE base)
set(TAVIX_media_MAY_USE base imaging)
set(TAVIX_text_MAY_USE base imaging)
set(TAVIX_scene3d_MAY_USE base imaging)
set(TAVIX_render_MAY_USE base core reel system imaging media text scene3d)
set(TAVIX_reelrender_MAY_USE base core reel imaging media text render)
set(TAVIX_editordomain_MAY_USE base core system imaging media render)
set(TAVIX_toolchain_MAY_USE base core system)
set(TAVIX_engine_MAY_USE base core reel system imaging media text render reelrender editordomain toolchain)

function(tavix_check_uses name)
    foreach(used IN LISTS ARGN)
        if(NOT used IN_LIST TAVIX_${name}_MAY_USE)
            message(FATAL_ERROR "${name} may not use ${used}; see cmake/TavixLibrary.cmake.")
        endif()
    endforeach()
endfunction()

# The folder that the headers of a library are found in by others, made of links: its window. Where it names the headers
# that it shows, the library itself and its own tests look into another one, with every file: its inside.
function(tavix_windows name)
    set(window ${CMAKE_BINARY_DIR}/include/${name})
    set(inside ${window})
    if(ARGN)
        set(inside ${CMAKE_BINARY_DIR}/inside/${name})
    endif()
    file(RELATIVE_PATH place ${CMAKE_SOURCE_DIR}/Packages ${CMAKE_CURRENT_SOURCE_DIR})
    get_filename_component(parent ${place} DIRECTORY)
    file(REMOVE_RECURSE ${window} ${inside})
    file(MAKE_DIRECTORY ${inside}/${parent})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${inside}/${place} SYMBOLIC)
    foreach(header IN LISTS ARGN)
        if(NOT EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${header})
            message(FATAL_ERROR "${place}/${header} is shown to others, but is not there.")
        endif()
        get_filename_component(folder ${window}/${place}/${header} DIRECTORY)
        file(MAKE_DIRECTORY ${folder})
        file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/${header} ${window}/${place}/${header} SYMBOLIC)
    endforeach()
    set(TAVIX_${name}_INSIDE ${inside} CACHE INTERNAL "")
endfunction()

# tavix_library(name SOURCES ... [HEADERS those that others may include; every one where none is named]
#     [USES libraries of ours] [EXTERNAL libraries of others])
# Headers are included by their path below Packages/, as in "TavixCore/Document/MusicBed.h".
function(tavix_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;HEADERS;USES;EXTERNAL" ${ARGN})
    tavix_check_uses(${name} ${ARG_USES})
    tavix_windows(${name} ${ARG_HEADERS})
    add_library(tavix_${name} STATIC ${ARG_SOURCES})
    target_include_directories(tavix_${name}
        PRIVATE ${TAVIX_${name}_INSIDE} INTERFACE ${CMAKE_BINARY_DIR}/include/${name})
    target_link_libraries(tavix_${name} PRIVATE tavix_flags ${ARG_EXTERNAL})
    list(TRANSFORM ARG_USES PREPEND tavix_)
    target_link_libraries(tavix_${name} PUBLIC ${ARG_USES})
endfunction()

# Lets a program of ours, as a test, see the inside of libraries.
function(tavix_see_inside program)
    foreach(name IN LISTS ARGN)
        target_include_directories(${program} BEFORE PRIVATE ${TAVIX_${name}_INSIDE})
    endforeach()
endfunction()

# tavix_floors(name folders...): the folders of a library, from the ground up. A folder that is not named, or a file that
# includes one of a higher floor, stops the configure step, so folders never form a circle.
function(tavix_floors name)
    file(RELATIVE_PATH place ${CMAKE_SOURCE_DIR}/Packages ${CMAKE_CURRENT_SOURCE_DIR})
    file(GLOB_RECURSE files RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS *.h *.cpp)
    foreach(file IN LISTS files)
        string(REGEX MATCH "^[^/]+" floor ${file})
        if(floor STREQUAL "Tests" OR floor STREQUAL file)
            continue()
        endif()
        list(FIND ARGN ${floor} height)
        if(height EQUAL -1)
            message(FATAL_ERROR "${place}/${file} is on no floor of ${name}; see tavix_floors in ${place}/CMakeLists.txt.")
        endif()
        file(STRINGS ${file} includes REGEX "^#include \"${place}/")
        foreach(include IN LISTS includes)
            string(REGEX REPLACE "^#include \"${place}/([^/]+)/.*" "\\1" used "${include}")
            list(FIND ARGN ${used} depth)
            if(depth GREATER height)
                message(FATAL_ERROR "${place}/${file} includes ${used}, which lies above ${floor}.")
            endif()
        endforeach()
    endforeach()
endfunction()

# tavix_kernels(sources...): files of Highway kernels, of the library of this folder. Every x86-64 processor since 2006
# has SSSE3, the baseline here; beyond it the best of three sets is picked at run time. Sanitized, one instruction set
# is enough, and quick to compile.
function(tavix_kernels)
    if(TAVIX_SANITIZE)
        set_property(SOURCE ${ARGN} APPEND PROPERTY COMPILE_DEFINITIONS HWY_COMPILE_ONLY_STATIC)
    endif()
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
        set_property(SOURCE ${ARGN} APPEND PROPERTY COMPILE_OPTIONS -mssse3)
        set_property(SOURCE ${ARGN} APPEND PROPERTY COMPILE_DEFINITIONS
            "HWY_DISABLED_TARGETS=(HWY_SCALAR|HWY_AVX3_DL)")
    endif()
endfunction()

# tavix_test(name SOURCES ... USES the libraries under test [INSIDE those of which more is seen than their windows]
#     [EXTERNAL ...]): one GoogleTest program. That of a library sees its inside.
function(tavix_test name)
    if(NOT TAVIX_TESTS)
        return()
    endif()
    cmake_parse_arguments(ARG "" "" "SOURCES;USES;INSIDE;EXTERNAL" ${ARGN})
    add_executable(tavix_${name}_tests ${ARG_SOURCES})
    if(TARGET tavix_${name})
        list(APPEND ARG_INSIDE ${name})
    endif()
    tavix_see_inside(tavix_${name}_tests ${ARG_INSIDE})
    list(TRANSFORM ARG_USES PREPEND tavix_)
    target_link_libraries(tavix_${name}_tests PRIVATE
        tavix_flags ${ARG_USES} tavix_testsupport ${ARG_EXTERNAL} GTest::gmock GTest::gtest_main)
    gtest_discover_tests(tavix_${name}_tests DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 300)
endfunction()

# tavix_benchmark(name SOURCES ... USES ... [INSIDE ...]): one Google Benchmark program.
function(tavix_benchmark name)
    if(NOT TAVIX_BENCHMARKS)
        return()
    endif()
    cmake_parse_arguments(ARG "" "" "SOURCES;USES;INSIDE;EXTERNAL" ${ARGN})
    add_executable(tavix_${name}_benchmark ${ARG_SOURCES})
    tavix_see_inside(tavix_${name}_benchmark ${ARG_INSIDE})
    list(TRANSFORM ARG_USES PREPEND tavix_)
    target_link_libraries(tavix_${name}_benchmark PRIVATE
        tavix_flags ${ARG_USES} ${ARG_EXTERNAL} benchmark::benchmark_main)
endfunction()

# tavix_fuzz(name SOURCES ... USES ... [INSIDE ...]): a libFuzzer program under clang; elsewhere the same entry point is
# driven over files named on the command line, so that a find can be replayed with any compiler.
function(tavix_fuzz name)
    if(NOT TAVIX_FUZZ)
        return()
    endif()
    cmake_parse_arguments(ARG "" "" "SOURCES;USES;INSIDE;EXTERNAL" ${ARGN})
    add_executable(tavix_${name}_fuzz ${ARG_SOURCES})
    tavix_see_inside(tavix_${name}_fuzz ${ARG_INSIDE})
    list(TRANSFORM ARG_USES PREPEND tavix_)
    target_link_libraries(tavix_${name}_fuzz PRIVATE tavix_flags ${ARG_USES} ${ARG_EXTERNAL})
    target_link_options(tavix_${name}_fuzz PRIVATE -fsanitize=fuzzer)
endfunction()
