# Boost's headers alone. The folder that they are installed in holds other systems' headers too, so that a link to
# them is taken.
if(NOT TARGET Boost::headers)
    file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/boost)
    file(CREATE_LINK /usr/include/boost ${CMAKE_BINARY_DIR}/boost/boost SYMBOLIC)
    add_library(Boost::headers INTERFACE IMPORTED GLOBAL)
    set_target_properties(
        Boost::headers PROPERTIES INTERFACE_INCLUDE_DIRECTORIES ${CMAKE_BINARY_DIR}/boost)
endif()
set(Boost_FOUND TRUE)
