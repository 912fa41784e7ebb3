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
# stands before it.
function(tbvnonpara_folder name)
    cmake_parse_arguments(PARSE_ARGV 1 folder "" "" "NEEDS;FOLDERS")
    if(NOT folder_FOLDERS)
        set(folder_FOLDERS ${name})
    endif()
    list(TRANSFORM folder_FOLDERS APPEND /*.cpp)
    file(GLOB sources CONFIGURE_DEPENDS ${folder_FOLDERS})
    add_library(tbvnonpara_${name} STATIC ${sources})
    tbvnonpara_compile_as_project(tbvnonpara_${name})
    list(TRANSFORM folder_NEEDS PREPEND tbvnonpara_)
    target_link_libraries(tbvnonpara_${name} PUBLIC ${folder_NEEDS})
endfunction()
