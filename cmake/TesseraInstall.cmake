# What `cmake --install` puts where. Nothing of it points back at the build or the sources, and a
# prefix can be moved as a whole.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Tessera)

# Each library finds its neighbour wherever the two stand.
set_target_properties(zotessera PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS zotessera zocore EXPORT TesseraTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Runtime
    NAMELINK_COMPONENT Development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/ ${PROJECT_SOURCE_DIR}/core/
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT Development
    FILES_MATCHING PATTERN "*.h")

install(EXPORT TesseraTargets NAMESPACE zo:: DESTINATION ${package_folder} COMPONENT Development)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/TesseraConfig.cmake.in
    ${PROJECT_BINARY_DIR}/TesseraConfig.cmake
    INSTALL_DESTINATION ${package_folder}
    NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/TesseraConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/TesseraConfig.cmake
    ${PROJECT_BINARY_DIR}/TesseraConfigVersion.cmake
    DESTINATION ${package_folder} COMPONENT Development)

set(pc_libs "-lzotessera -lzocore")
if(NOT BUILD_SHARED_LIBS)
    # A program that links a static library links what that needs.
    string(APPEND pc_libs " -lyajl")
    install(FILES ${CMAKE_CURRENT_LIST_DIR}/FindYajl.cmake
        DESTINATION ${package_folder} COMPONENT Development)
endif()
file(RELATIVE_PATH pc_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" pc_prefix "${pc_prefix}")
configure_file(${CMAKE_CURRENT_LIST_DIR}/zotessera.pc.in ${PROJECT_BINARY_DIR}/zotessera.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/zotessera.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT Development)

install(FILES
    ${PROJECT_SOURCE_DIR}/README.md
    ${PROJECT_SOURCE_DIR}/CHANGELOG.md
    ${PROJECT_SOURCE_DIR}/CONTRIBUTING.md
    ${PROJECT_SOURCE_DIR}/SECURITY.md
    DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT Development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs ${PROJECT_SOURCE_DIR}/examples
    DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT Development
    FILES_MATCHING REGEX "(\\.(md|svg|cpp|expected|json)|/CMakeLists\\.txt)$"
    PATTERN examples/CMakeLists.txt EXCLUDE)
