# What every target of the project is compiled with: C++20 without extensions, formulas evaluated in the order
# they are written in.
function(tbvnonpara_compile_as_project target)
    target_compile_features(${target} PUBLIC cxx_std_20)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON)
    target_include_directories(
        ${target} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<INSTALL_INTERFACE:include>)
    target_compile_options(${target} PRIVATE -ffp-contract=off -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
    # A tenth to a quarter of GCC's time was looking for memory to use again, of which a folder needs little.
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:--param=ggc-min-heapsize=1500000>)
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
    # A shared library shows what is marked TBVNONPARA_API, and calls its own functions as an archive would.
    if(NOT WIN32)
        set_target_properties(tbvnonpara_${name} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
        target_compile_options(tbvnonpara_${name} PRIVATE -fno-semantic-interposition)
    endif()
    list(TRANSFORM folder_NEEDS PREPEND tbvnonpara_)
    target_link_libraries(tbvnonpara_${name} PUBLIC ${folder_NEEDS})
endfunction()

# tbvnonpara_library(TARGET NAME FILE FOLDERS NAME... SOVERSION NUMBER SYMBOLS MAP [NEEDS LIBRARY...] [WITH LIBRARY...]
#                    [ARCHIVE])
# What clients link as TBVNonPara::NAME: the objects of whole folders in libFILE.so or libFILE.a, by BUILD_SHARED_LIBS.
# NEEDS are of this kind, too; WITH is what the library needs for itself. A shared one shows the symbols of MAP, and
# ARCHIVE puts the same objects into an archive beside it, TBVNonPara::NAME_static.
function(tbvnonpara_library target name file)
    cmake_parse_arguments(PARSE_ARGV 3 library "ARCHIVE" "SOVERSION;SYMBOLS" "FOLDERS;NEEDS;WITH")
    list(TRANSFORM library_FOLDERS REPLACE "(.+)" "$<TARGET_OBJECTS:tbvnonpara_\\1>" OUTPUT_VARIABLE objects)
    # For Windows there are archives: its shared library is the automation server. A shared one finds those that it needs
    # beside itself, wherever they are installed.
    if(BUILD_SHARED_LIBS AND NOT WIN32)
        add_library(${target} SHARED ${objects})
        set_target_properties(${target} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${library_SOVERSION}
                              LINK_DEPENDS ${library_SYMBOLS} INSTALL_RPATH $ORIGIN)
        target_link_options(${target} PRIVATE LINKER:--version-script=${library_SYMBOLS})
    else()
        add_library(${target} STATIC ${objects})
        set(library_ARCHIVE FALSE)
    endif()
    tbvnonpara_name_library(${target} ${name} ${file})
    target_link_libraries(${target} PUBLIC ${library_NEEDS} PRIVATE ${library_WITH})
    if(library_ARCHIVE)
        add_library(${target}_static STATIC ${objects})
        tbvnonpara_name_library(${target}_static ${name}_static ${file})
        list(TRANSFORM library_NEEDS APPEND _static)
        target_link_libraries(${target}_static PUBLIC ${library_NEEDS} PRIVATE ${library_WITH})
    endif()
endfunction()

function(tbvnonpara_name_library target name file)
    add_library(TBVNonPara::${name} ALIAS ${target})
    tbvnonpara_compile_as_project(${target})
    set_target_properties(${target} PROPERTIES LINKER_LANGUAGE CXX EXPORT_NAME ${name} OUTPUT_NAME ${file})
endfunction()
