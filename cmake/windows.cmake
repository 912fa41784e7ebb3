# Compiles for 64-bit Windows on Debian and runs what it compiled under Wine; what the tests use and no package
# offers for Windows comes from cmake/windows/.
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
list(PREPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR}/windows)
set(CMAKE_CROSSCOMPILING_EMULATOR wine)
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
