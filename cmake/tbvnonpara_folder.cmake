# What every target of the project is compiled with: C++20 without extensions, formulas evaluated in the order
# they are written in.
function(tbvnonpara_compile_as_project target)
    target_compile_features(${target} PUBLIC cxx_std_20)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON)
    target_include_directories(
        ${target} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<INSTALL_INTERFACE:include>)
    target_compile_options(${target} PRIVATE -ffp-contract=off -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
endfunction()

# tbvnonpara_folder(NAME [NEEDS NAME...] [FOLDERS FOLDER...])
# The sources of the folder NAME, or of FOLDERS, as a library of their own, so that a folder's tests need only what
# stands before it. With CMAKE_UNITY_BUILD each folder is one unit: names in unnamed namespaces are unique within it.
function(tbvnonpara_folder name)
    cmake_parse_arguments(PARSE_ARGV 1 folder "" "" "NEEDS;FOLDERS")
    if(NOT folder_FOLDERS)
        set(folder_FOLDERS ${name})
    endif()
    set(all_sources)
    foreach(folder ${folder_FOLDERS})
        file(GLOB sources CONFIGURE_DEPENDS ${folder}/*.cpp)
        string(MAKE_C_IDENTIFIER ${folder} unit)
        set_source_files_properties(${sources} PROPERTIES UNITY_GROUP ${unit})
        list(APPEND all_sources ${sources})
    endforeach()
    add_library(tbvnonpara_${name} STATIC ${all_sources})
    set_target_properties(tbvnonpara_${name} PROPERTIES UNITY_BUILD_MODE GROUP
                          ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/folders)
    tbvnonpara_compile_as_project(tbvnonpara_${name})
    list(TRANSFORM folder_NEEDS PREPEND tbvnonpara_)
    target_link_libraries(tbvnonpara_${name} PUBLIC ${folder_NEEDS})
endfunction()

# tbvnonpara_library(TARGET NAME FILE FOLDERS NAME... [NEEDS LIBRARY...] [TYPE_BY_SHARED_LIBS])
# What clients link as TBVNonPara::NAME: the objects of whole folders in libFILE.a, or by BUILD_SHARED_LIBS. NEEDS are
# linked by who links it.
function(tbvnonpara_library target name file)
    cmake_parse_arguments(PARSE_ARGV 3 library "TYPE_BY_SHARED_LIBS" "" "FOLDERS;NEEDS")
    list(TRANSFORM library_FOLDERS REPLACE "(.+)" "$<TARGET_OBJECTS:tbvnonpara_\\1>" OUTPUT_VARIABLE objects)
    set(type STATIC)
    if(library_TYPE_BY_SHARED_LIBS)
        set(type)
    endif()
    add_library(${target} ${type} ${objects})
    add_library(TBVNonPara::${name} ALIAS ${target})
    tbvnonpara_compile_as_project(${target})
    set_target_properties(${target} PROPERTIES LINKER_LANGUAGE CXX EXPORT_NAME ${name} OUTPUT_NAME ${file})
    target_link_libraries(${target} PUBLIC ${library_NEEDS})
endfunction()
