# fmt without its library, which Debian compiles for its own systems only.
include(${CMAKE_CURRENT_LIST_DIR}/headers_alone.cmake)
headers_alone(fmt::fmt fmt)
if(fmt_FOUND)
    target_compile_definitions(fmt::fmt INTERFACE FMT_HEADER_ONLY)
endif()
