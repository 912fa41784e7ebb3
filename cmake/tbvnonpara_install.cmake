# The install target, the package configuration and the packages.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# Each library with its headers; the package configuration reads the lists of targets whose needs are met.
set(configuration ${CMAKE_INSTALL_LIBDIR}/cmake/TBVNonPara)
function(tbvnonpara_install_targets list)
    cmake_parse_arguments(PARSE_ARGV 1 list "" "" "TARGETS;FOLDERS;HEADERS")
    install(TARGETS ${list_TARGETS} EXPORT TBVNonPara${list})
    install(EXPORT TBVNonPara${list} NAMESPACE TBVNonPara:: DESTINATION ${configuration})
    set(headers ${CMAKE_INSTALL_INCLUDEDIR}/tbvnonpara)
    foreach(folder ${list_FOLDERS})
        install(DIRECTORY ${PROJECT_SOURCE_DIR}/tbvnonpara/${folder} DESTINATION ${headers} FILES_MATCHING PATTERN *.hpp)
    endforeach()
    if(list_HEADERS)
        list(TRANSFORM list_HEADERS PREPEND ${PROJECT_SOURCE_DIR}/tbvnonpara/)
        install(FILES ${list_HEADERS} DESTINATION ${headers})
    endif()
endfunction()

if(TBVNONPARA_STATISTICS)
    tbvnonpara_install_targets(StatisticsTargets TARGETS tbvnonpara_statistics_archive FOLDERS statistics
                               HEADERS statistics.hpp)
endif()
tbvnonpara_install_targets(Targets TARGETS tbvnonpara
                           FOLDERS core ordering distributions host companion engine report request)
if(TBVNONPARA_BUILD_CLI)
    tbvnonpara_install_targets(WorkbookTargets TARGETS tbvnonpara_workbook_archive
                               FOLDERS json details reshaping workbook files analysis rendering)
endif()

if(TBVNONPARA_BUILD_C)
    tbvnonpara_install_targets(CTargets TARGETS tbvnonpara_for_c)
    install(FILES ${PROJECT_SOURCE_DIR}/tbvnonpara/c/tbvnonpara.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
    # An archive does not know what it needs from C++.
    set(TBVNONPARA_PC_LIBS "-L\${libdir} -ltbvnonpara")
    if(NOT BUILD_SHARED_LIBS)
        string(APPEND TBVNONPARA_PC_LIBS " -lstdc++ -lm")
    endif()
    file(RELATIVE_PATH TBVNONPARA_PC_PREFIX /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/tbvnonpara.pc.in ${PROJECT_BINARY_DIR}/tbvnonpara.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/tbvnonpara.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endif()

write_basic_package_version_file(
    ${PROJECT_BINARY_DIR}/TBVNonParaConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_SOURCE_DIR}/cmake/TBVNonParaConfig.cmake
              ${PROJECT_BINARY_DIR}/TBVNonParaConfigVersion.cmake
        DESTINATION ${configuration})

if(TBVNONPARA_BUILD_CLI)
    install(TARGETS tbvnonpara_program)
endif()

# Debian's name for the licence file is "copyright".
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tbvnonpara RENAME copyright)

# The guides and the data that they and the program's help use, laid out as here, so that links and examples hold.
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PROJECT_SOURCE_DIR}/CONTRIBUTING.md
        ${PROJECT_SOURCE_DIR}/LICENSE
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tbvnonpara)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs ${PROJECT_SOURCE_DIR}/examples
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tbvnonpara
        FILES_MATCHING PATTERN *.md PATTERN *.png PATTERN *.svg PATTERN *.csv PATTERN *.R PATTERN *.c PATTERN *.py
                       PATTERN *.cpp PATTERN CMakeLists.txt)

# The reference of the headers, where the target `reference` has been built.
find_program(TBVNONPARA_DOXYGEN doxygen)
if(TBVNONPARA_DOXYGEN)
    add_custom_target(reference VERBATIM COMMAND ${PROJECT_SOURCE_DIR}/docs/make_reference
                                                 ${PROJECT_BINARY_DIR}/reference ${PROJECT_VERSION})
endif()
install(DIRECTORY ${PROJECT_BINARY_DIR}/reference/html/ DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tbvnonpara/reference
        COMPONENT development OPTIONAL)

set(CPACK_PACKAGE_NAME tbvnonpara)
set(CPACK_PACKAGE_VENDOR "TBVNonPara developers")
set(CPACK_PACKAGE_CONTACT "TBVNonPara developers <tbvnonpara@localhost>")
set(CPACK_PACKAGE_DESCRIPTION
    "Eight nonparametric tests, from Mann-Whitney to Wald-Wolfowitz, on the columns of a data file, reported as a
 spreadsheet would show them: a program and a C++ library.")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB TGZ)
set(CPACK_DEBIAN_PACKAGE_SECTION math)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_VERBATIM_VARIABLES ON)
include(CPack)
