# GoogleTest from its sources, compiled with the tests.
if(NOT TARGET GTest::gtest)
    set(BUILD_SHARED_LIBS OFF)
    set(INSTALL_GTEST OFF)
    add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
endif()
set(GTest_FOUND TRUE)
