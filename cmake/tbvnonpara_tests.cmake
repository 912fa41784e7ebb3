# How the tests are compiled, on every host.
find_package(GTest REQUIRED)

# With this, or CMAKE_UNITY_BUILD, the tests of a folder are one unit: names at the top of a file of tests are unique
# within their folder.
option(TBVNONPARA_TEST_UNITS "Compile each program of tests as one unit" ${CMAKE_UNITY_BUILD})

# Those that take longer to run than an optimizer takes over them: under the sanitizers, what plays many runs.
set(TBVNONPARA_OPTIMIZED_TESTS "" CACHE STRING "Programs of tests to optimize")

# What is compiled once and run once is not worth optimizing. Programs are compiled as libraries are (not -fPIE), so
# that both take the same precompiled headers.
function(tbvnonpara_compile_as_test target)
    tbvnonpara_compile_as_project(${target})
    set_target_properties(${target} PROPERTIES UNITY_BUILD ${TBVNONPARA_TEST_UNITS} UNITY_BUILD_BATCH_SIZE 0)
    target_compile_options(${target} PRIVATE -O0)
    if(WIN32)
        target_link_options(${target} PRIVATE -fno-use-linker-plugin -wrapper
                            ${PROJECT_SOURCE_DIR}/cmake/windows/link_test)
    else()
        target_compile_options(${target} PRIVATE -fPIC)
    endif()
    if(target STREQUAL "tbvnonpara_test_support")
        return()
    endif()
    target_link_libraries(${target} PRIVATE tbvnonpara_test_support)
    if(target IN_LIST TBVNONPARA_OPTIMIZED_TESTS)
        # The precompiled headers are those without optimization.
        target_compile_options(${target} PRIVATE -O1)
        return()
    endif()
    target_precompile_headers(${target} REUSE_FROM tbvnonpara_test_support)
endfunction()

# A program of tests, which ctest runs as a whole under the name NAME.
function(tbvnonpara_test_program name)
    cmake_parse_arguments(PARSE_ARGV 1 program "" "PROGRAM" "SOURCES;LINKS")
    add_executable(${program_PROGRAM} ${program_SOURCES})
    tbvnonpara_compile_as_test(${program_PROGRAM})
    target_link_libraries(${program_PROGRAM} PRIVATE ${program_LINKS} GTest::gtest_main)
    add_test(NAME ${name} COMMAND ${program_PROGRAM} --gtest_brief=1)
endfunction()

# The tests of one folder: every .cpp beside this call in one program, <folder>_tests.
function(tbvnonpara_tests folder)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
    tbvnonpara_test_program(${folder} PROGRAM ${folder}_tests SOURCES ${sources} LINKS ${ARGN})
endfunction()
