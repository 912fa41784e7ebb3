# headers_alone(TARGET FOLDER): a library that is headers alone, in /usr/include/FOLDER. What stands beside them there
# are other systems' headers, so that a link to them is taken.
macro(headers_alone target folder)
    set(${CMAKE_FIND_PACKAGE_NAME}_FOUND FALSE)
    if(EXISTS /usr/include/${folder})
        set(${CMAKE_FIND_PACKAGE_NAME}_FOUND TRUE)
        if(NOT TARGET ${target})
            file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/${folder})
            file(CREATE_LINK /usr/include/${folder} ${CMAKE_BINARY_DIR}/${folder}/${folder} SYMBOLIC)
            add_library(${target} INTERFACE IMPORTED GLOBAL)
            target_include_directories(${target} INTERFACE ${CMAKE_BINARY_DIR}/${folder})
        endif()
    endif()
endmacro()
