# What every target of the project is compiled with: C++20 without extensions, formulas evaluated in the order
# they are written in.
function(tbvnonpara_compile_as_project target)
    target_compile_features(${target} PUBLIC cxx_std_20)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON)
    target_include_directories(
        ${target} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<INSTALL_INTERFACE:include/TBVNonPara>)
    target_compile_options(${target} PRIVATE -ffp-contract=off -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
endfunction()

# A folder of the library: an object library of its own, so that a folder's tests need only what stands before it.
function(tbvnonpara_folder folder)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
    add_library(tbvnonpara_${folder} OBJECT ${sources})
    tbvnonpara_compile_as_project(tbvnonpara_${folder})
endfunction()
