# The install target and the package configuration, by components: what programs need of the libraries, what builds with
# them, the program, the package for Python, the add-in for Calc.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
include(tbvnonpara_public_headers)

# with_archive(RESULT TARGET): a library, and the archive beside it where there is one.
function(with_archive result target)
    set(targets ${target})
    if(TARGET ${target}_static)
        list(APPEND targets ${target}_static)
    endif()
    set(${result} ${targets} PARENT_SCOPE)
endfunction()

# Each library with its headers; the package configuration reads the lists of targets whose needs are met.
set(configuration ${CMAKE_INSTALL_LIBDIR}/cmake/TBVNonPara)
function(tbvnonpara_install_targets list)
    cmake_parse_arguments(PARSE_ARGV 1 list "" "" "TARGETS;FOLDERS")
    install(TARGETS ${list_TARGETS} EXPORT TBVNonPara${list}
            LIBRARY COMPONENT libraries NAMELINK_COMPONENT development ARCHIVE COMPONENT development)
    install(EXPORT TBVNonPara${list} NAMESPACE TBVNonPara:: DESTINATION ${configuration} COMPONENT development)
    tbvnonpara_public_headers(headers ${list_FOLDERS})
    foreach(header ${headers})
        cmake_path(GET header PARENT_PATH folder)
        install(FILES ${PROJECT_SOURCE_DIR}/${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${folder}
                COMPONENT development)
    endforeach()
endfunction()

if(TBVNONPARA_STATISTICS)
    with_archive(full_tests tbvnonpara_full_tests)
    tbvnonpara_install_targets(StatisticsTargets TARGETS ${full_tests} FOLDERS core ordering distributions statistics
                               statistics.hpp)
endif()
with_archive(automation tbvnonpara)
tbvnonpara_install_targets(Targets TARGETS ${automation}
                           FOLDERS core ordering distributions host companion engine report request)
if(TBVNONPARA_BUILD_CLI)
    tbvnonpara_install_targets(WorkbookTargets TARGETS tbvnonpara_report_files
                               FOLDERS json details reshaping workbook files analysis rendering)
    if(TARGET tbvnonpara_report_files_static)
        tbvnonpara_install_targets(WorkbookStaticTargets TARGETS tbvnonpara_report_files_static)
    endif()
endif()

if(TBVNONPARA_BUILD_C)
    tbvnonpara_install_targets(CTargets TARGETS tbvnonpara_for_c)
    install(FILES ${PROJECT_SOURCE_DIR}/tbvnonpara/c/tbvnonpara.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
            COMPONENT development)
    # An archive does not know what it needs from C++.
    set(TBVNONPARA_PC_LIBS "-L\${libdir} -ltbvnonpara")
    if(NOT BUILD_SHARED_LIBS)
        string(APPEND TBVNONPARA_PC_LIBS " -lstdc++ -lm")
    endif()
    file(RELATIVE_PATH TBVNONPARA_PC_PREFIX /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/tbvnonpara.pc.in ${PROJECT_BINARY_DIR}/tbvnonpara.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/tbvnonpara.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endif()

write_basic_package_version_file(
    ${PROJECT_BINARY_DIR}/TBVNonParaConfigVersion.cmake COMPATIBILITY SameMinorVersion)
configure_file(${PROJECT_SOURCE_DIR}/cmake/TBVNonParaConfig.cmake.in ${PROJECT_BINARY_DIR}/TBVNonParaConfig.cmake @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/TBVNonParaConfig.cmake ${PROJECT_BINARY_DIR}/TBVNonParaConfigVersion.cmake
        DESTINATION ${configuration} COMPONENT development)

# The reference of the headers, where the target `reference` has been built.
find_program(TBVNONPARA_DOXYGEN doxygen)
if(TBVNONPARA_DOXYGEN)
    add_custom_target(reference VERBATIM COMMAND ${PROJECT_SOURCE_DIR}/docs/make_reference
                                                 ${PROJECT_BINARY_DIR}/reference ${PROJECT_VERSION})
endif()
install(DIRECTORY ${PROJECT_BINARY_DIR}/reference/html/ DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tbvnonpara/reference
        COMPONENT development OPTIONAL)

# The program, the guides and the data that they and the program's help use, laid out as here, so that links and examples
# hold.
if(TBVNONPARA_BUILD_CLI)
    install(TARGETS tbvnonpara_program COMPONENT program)
endif()
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PROJECT_SOURCE_DIR}/CONTRIBUTING.md
        ${PROJECT_SOURCE_DIR}/LICENSE
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tbvnonpara COMPONENT program)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs ${PROJECT_SOURCE_DIR}/examples
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tbvnonpara COMPONENT program
        FILES_MATCHING PATTERN *.md PATTERN *.png PATTERN *.svg PATTERN *.csv PATTERN *.R PATTERN *.c PATTERN *.py
                       PATTERN *.cpp PATTERN CMakeLists.txt)

include(tbvnonpara_packages)
