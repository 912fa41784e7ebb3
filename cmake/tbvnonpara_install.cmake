# The install target, the package configuration and the packages.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS tbvnonpara EXPORT TBVNonParaTargets)
foreach(folder core ordering distributions statistics host companion engine report request)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/tbvnonpara/${folder} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tbvnonpara
            FILES_MATCHING PATTERN *.hpp)
endforeach()

install(FILES ${PROJECT_SOURCE_DIR}/tbvnonpara/statistics.hpp DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tbvnonpara)

set(configuration ${CMAKE_INSTALL_LIBDIR}/cmake/TBVNonPara)
install(EXPORT TBVNonParaTargets NAMESPACE TBVNonPara:: DESTINATION ${configuration})
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
        FILES_MATCHING PATTERN *.md PATTERN *.png PATTERN *.svg PATTERN *.csv PATTERN *.R)

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
