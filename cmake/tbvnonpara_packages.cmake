# The packages: one archive of everything, and for Debian one package for each kind of user.
set(CPACK_PACKAGE_NAME tbvnonpara)
set(CPACK_PACKAGE_VENDOR "TBVNonPara developers")
set(CPACK_PACKAGE_CONTACT "TBVNonPara developers <tbvnonpara@localhost>")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB TGZ)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_COMPONENTS_ALL)
set(eight "Eight nonparametric tests, from Mann-Whitney to Wald-Wolfowitz, with exact P, effect sizes, intervals and
 comparisons: ")

# tbvnonpara_package(COMPONENT NAME SECTION SUMMARY TEXT): its licence is named as Debian does.
macro(tbvnonpara_package component name section summary text)
    list(APPEND CPACK_COMPONENTS_ALL ${component})
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
    set(CPACK_DEBIAN_${upper}_DESCRIPTION "${summary}\n${eight}${text}")
    set(CPACK_DEBIAN_${upper}_PACKAGE_SHLIBDEPS ON)
    install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} RENAME copyright
            COMPONENT ${component})
endmacro()

tbvnonpara_package(libraries libtbvnonpara0 libs "nonparametric tests (shared libraries)"
                   "what programs in C++ and C that use the libraries need to run.")
tbvnonpara_package(development libtbvnonpara-dev libdevel "nonparametric tests (headers and reference)"
                   "what programs in C++ and C are built with.")
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS libraries)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS tbvnonpara)
if(TBVNONPARA_BUILD_CLI)
    tbvnonpara_package(program tbvnonpara math "nonparametric tests on the columns of a data file"
                       "a program for CSV, XLSX and ODS files, and the guides.")
endif()
if(TARGET tbvnonpara_python)
    tbvnonpara_package(python python3-tbvnonpara python "nonparametric tests for Python"
                       "on numpy arrays, pandas and Dask.")
    set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS "${TBVNONPARA_PYTHONS}, python3-numpy")
    set(CPACK_DEBIAN_PYTHON_PACKAGE_RECOMMENDS python3-pandas)
    set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS "python3-dask, python3-distributed")
endif()
if(TARGET oxt)
    tbvnonpara_package(calc tbvnonpara-calc math "nonparametric tests in LibreOffice Calc"
                       "a menu entry with a dialog, and objects for macros.")
    set(CPACK_DEBIAN_CALC_PACKAGE_DEPENDS "libreoffice-calc (>= 1:7.4)")
endif()
include(CPack)
