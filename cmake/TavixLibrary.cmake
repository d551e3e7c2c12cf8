# Who may use whom. A dependency outside this table stops the configure step; an include outside it does not
# compile, because each library is seen only through an include folder of its own.
set(TAVIX_testsupport_MAY_USE)
set(TAVIX_core_MAY_USE)
set(TAVIX_imaging_MAY_USE)
set(TAVIX_system_MAY_USE)
set(TAVIX_media_MAY_USE imaging)
set(TAVIX_text_MAY_USE imaging)
set(TAVIX_scene3d_MAY_USE imaging)
set(TAVIX_render_MAY_USE core system imaging media text scene3d)
set(TAVIX_editordomain_MAY_USE core system imaging media render)
set(TAVIX_toolchain_MAY_USE core system)
set(TAVIX_engine_MAY_USE core system imaging media text render editordomain toolchain)

function(tavix_check_uses name)
    foreach(used IN LISTS ARGN)
        if(NOT used IN_LIST TAVIX_${name}_MAY_USE)
            message(FATAL_ERROR "${name} may not use ${used}; see cmake/TavixLibrary.cmake.")
        endif()
    endforeach()
endfunction()

# tavix_library(name SOURCES ... [USES libraries of ours] [EXTERNAL libraries of others])
# Headers are included by their path below Packages/, as in "TavixCore/Composition/MusicBed.h".
function(tavix_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;USES;EXTERNAL" ${ARGN})
    tavix_check_uses(${name} ${ARG_USES})
    set(window ${CMAKE_BINARY_DIR}/include/${name})
    file(RELATIVE_PATH place ${CMAKE_SOURCE_DIR}/Packages ${CMAKE_CURRENT_SOURCE_DIR})
    if(NOT IS_SYMLINK ${window}/${place})
        get_filename_component(parent ${window}/${place} DIRECTORY)
        file(MAKE_DIRECTORY ${parent})
        file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${window}/${place} SYMBOLIC)
    endif()
    add_library(tavix_${name} STATIC ${ARG_SOURCES})
    target_include_directories(tavix_${name} PUBLIC ${window})
    target_link_libraries(tavix_${name} PRIVATE tavix_flags ${ARG_EXTERNAL})
    list(TRANSFORM ARG_USES PREPEND tavix_)
    target_link_libraries(tavix_${name} PUBLIC ${ARG_USES})
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

# tavix_test(name SOURCES ... USES the libraries under test [EXTERNAL ...]): one GoogleTest program.
function(tavix_test name)
    if(NOT TAVIX_TESTS)
        return()
    endif()
    cmake_parse_arguments(ARG "" "" "SOURCES;USES;EXTERNAL" ${ARGN})
    add_executable(tavix_${name}_tests ${ARG_SOURCES})
    list(TRANSFORM ARG_USES PREPEND tavix_)
    target_link_libraries(tavix_${name}_tests PRIVATE
        tavix_flags ${ARG_USES} tavix_testsupport ${ARG_EXTERNAL} GTest::gmock GTest::gtest_main)
    gtest_discover_tests(tavix_${name}_tests DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 300)
endfunction()

# tavix_benchmark(name SOURCES ... USES ...): one Google Benchmark program.
function(tavix_benchmark name)
    if(NOT TAVIX_BENCHMARKS)
        return()
    endif()
    cmake_parse_arguments(ARG "" "" "SOURCES;USES;EXTERNAL" ${ARGN})
    add_executable(tavix_${name}_benchmark ${ARG_SOURCES})
    list(TRANSFORM ARG_USES PREPEND tavix_)
    target_link_libraries(tavix_${name}_benchmark PRIVATE
        tavix_flags ${ARG_USES} ${ARG_EXTERNAL} benchmark::benchmark_main)
endfunction()

# tavix_fuzz(name SOURCES ... USES ...): a libFuzzer program under clang; elsewhere the same entry point is
# driven over files named on the command line, so that a find can be replayed with any compiler.
function(tavix_fuzz name)
    if(NOT TAVIX_FUZZ)
        return()
    endif()
    cmake_parse_arguments(ARG "" "" "SOURCES;USES;EXTERNAL" ${ARGN})
    add_executable(tavix_${name}_fuzz ${ARG_SOURCES})
    list(TRANSFORM ARG_USES PREPEND tavix_)
    target_link_libraries(tavix_${name}_fuzz PRIVATE tavix_flags ${ARG_USES} ${ARG_EXTERNAL})
    target_link_options(tavix_${name}_fuzz PRIVATE -fsanitize=fuzzer)
endfunction()
