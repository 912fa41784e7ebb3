# Boost's headers alone.
include(${CMAKE_CURRENT_LIST_DIR}/headers_alone.cmake)
headers_alone(Boost::headers boost)
