# Compiles for Windows on Debian and runs what it compiled under Wine; what the tests use and no package offers for
# Windows comes from cmake/windows/. TBVNONPARA_WINDOWS_PROCESSOR is x86_64 or i686.
set(TBVNONPARA_WINDOWS_PROCESSOR x86_64 CACHE STRING "The processor of the automation server: x86_64 or i686")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TBVNONPARA_WINDOWS_PROCESSOR)
set(windows_triple ${TBVNONPARA_WINDOWS_PROCESSOR}-w64-mingw32)
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${TBVNONPARA_WINDOWS_PROCESSOR})
set(CMAKE_C_COMPILER ${windows_triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${windows_triple}-g++-posix)
set(CMAKE_RC_COMPILER ${windows_triple}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${windows_triple})
if(TBVNONPARA_WINDOWS_PROCESSOR STREQUAL i686)
    # Numbers are those of 64 bits: doubles are never held with more digits. Callers align the stack to four bytes,
    # these registers want sixteen. With the unlikely part of a function elsewhere, GCC 12's exceptions do not find it in
    # every program, and end the process.
    foreach(language C CXX)
        set(CMAKE_${language}_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign -fno-reorder-blocks-and-partition")
    endforeach()
endif()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
list(PREPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR}/windows)
set(CMAKE_CROSSCOMPILING_EMULATOR wine)
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
