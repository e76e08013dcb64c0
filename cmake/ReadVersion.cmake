# Sets TESSERA_VERSION to the version that include/zo/Tessera/version.h names, the one place for it.

set(tessera_version_header ${CMAKE_CURRENT_LIST_DIR}/../include/zo/Tessera/version.h)
file(STRINGS ${tessera_version_header} tessera_version_lines
    REGEX "^#define ZO_TESSERA_VERSION_(MAJOR|MINOR|PATCH) [0-9]+$")
string(REGEX REPLACE "[^0-9;]" "" tessera_version_numbers "${tessera_version_lines}")
string(REPLACE ";" "." TESSERA_VERSION "${tessera_version_numbers}")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${tessera_version_header})
