# Debian packages of what is installed, made by cpack: one with the libraries, and one with what
# programs are built with. The preset debian sets what this needs.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tessera)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_COMPONENTS_ALL Runtime Development)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
# For the packages of programs that are linked to the libraries.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

# Debian's tools ask those who make a package for these two.
if(NOT "$ENV{DEBFULLNAME}" STREQUAL "" AND NOT "$ENV{DEBEMAIL}" STREQUAL "")
    set(CPACK_PACKAGE_CONTACT "$ENV{DEBFULLNAME} <$ENV{DEBEMAIL}>")
else()
    set(CPACK_PACKAGE_CONTACT "Unnamed maker <unnamed@package.invalid>")
endif()

set(TESSERA_RUNTIME_PACKAGE libzotessera${PROJECT_VERSION_MAJOR})
set(TESSERA_DEVELOPMENT_PACKAGE libzotessera-dev)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "exact, ordered, editable document model for JSON")
set(about "A document is a tree of elements that know their place. Members keep their
order and numbers their text; short paths reach, test and create elements;
every error names the element it concerns.

This package has")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${TESSERA_RUNTIME_PACKAGE})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "${about} the shared libraries.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${TESSERA_DEVELOPMENT_PACKAGE})
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${TESSERA_RUNTIME_PACKAGE} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "${about} the headers, the CMake package, the pkg-config file,
the printers for gdb and the guide.")

# What Debian expects in every package.
set(debian_folder ${CMAKE_CURRENT_LIST_DIR}/debian)
string(TIMESTAMP TESSERA_PACKAGE_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(${debian_folder}/changelog.in ${PROJECT_BINARY_DIR}/debian/changelog @ONLY)
execute_process(COMMAND gzip --best --no-name --stdout ${PROJECT_BINARY_DIR}/debian/changelog
    OUTPUT_FILE ${PROJECT_BINARY_DIR}/debian/changelog.Debian.gz
    COMMAND_ERROR_IS_FATAL ANY)
foreach(component IN ITEMS Runtime Development)
    string(TOUPPER ${component} upper)
    set(package ${TESSERA_${upper}_PACKAGE})
    install(FILES ${debian_folder}/copyright ${PROJECT_BINARY_DIR}/debian/changelog.Debian.gz
        DESTINATION share/doc/${package} COMPONENT ${component})
    install(FILES ${debian_folder}/lintian-overrides.${component}
        DESTINATION share/lintian/overrides RENAME ${package} COMPONENT ${component})
endforeach()

include(CPack)
