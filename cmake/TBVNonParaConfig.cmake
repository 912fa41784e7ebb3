include(${CMAKE_CURRENT_LIST_DIR}/TBVNonParaTargets.cmake)
