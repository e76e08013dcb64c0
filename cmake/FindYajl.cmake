# Finds yajl, the JSON tokeniser and generator, and defines the target Yajl::yajl.
# pkg-config only gives hints: some distributions ship no yajl.pc, or one with wrong paths.

find_package(PkgConfig QUIET)
if(PKG_CONFIG_FOUND)
    pkg_check_modules(PC_YAJL QUIET yajl)
endif()

find_path(Yajl_INCLUDE_DIR yajl/yajl_parse.h HINTS ${PC_YAJL_INCLUDE_DIRS})
find_library(Yajl_LIBRARY NAMES yajl HINTS ${PC_YAJL_LIBRARY_DIRS})

if(Yajl_INCLUDE_DIR AND EXISTS "${Yajl_INCLUDE_DIR}/yajl/yajl_version.h")
    file(STRINGS "${Yajl_INCLUDE_DIR}/yajl/yajl_version.h" yajl_version_lines
        REGEX "^#define YAJL_(MAJOR|MINOR|MICRO) ")
    string(REGEX REPLACE "[^0-9;]" "" yajl_version_numbers "${yajl_version_lines}")
    string(REPLACE ";" "." Yajl_VERSION "${yajl_version_numbers}")
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Yajl
    REQUIRED_VARS Yajl_LIBRARY Yajl_INCLUDE_DIR
    VERSION_VAR Yajl_VERSION
    REASON_FAILURE_MESSAGE "On Debian: apt-get install libyajl-dev")
mark_as_advanced(Yajl_INCLUDE_DIR Yajl_LIBRARY)

if(Yajl_FOUND AND NOT TARGET Yajl::yajl)
    add_library(Yajl::yajl UNKNOWN IMPORTED)
    set_target_properties(Yajl::yajl PROPERTIES
        IMPORTED_LOCATION "${Yajl_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${Yajl_INCLUDE_DIR}")
endif()
