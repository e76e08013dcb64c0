# Finds utfcpp, the header-only UTF-8 library, and defines the target Utfcpp::utfcpp.

find_path(Utfcpp_INCLUDE_DIR utf8.h PATH_SUFFIXES utf8cpp)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Utfcpp
    REQUIRED_VARS Utfcpp_INCLUDE_DIR
    REASON_FAILURE_MESSAGE "On Debian: apt-get install libutfcpp-dev")
mark_as_advanced(Utfcpp_INCLUDE_DIR)

if(Utfcpp_FOUND AND NOT TARGET Utfcpp::utfcpp)
    add_library(Utfcpp::utfcpp INTERFACE IMPORTED)
    set_target_properties(Utfcpp::utfcpp PROPERTIES
        INTERFACE_INCLUDE_DIRECTORIES "${Utfcpp_INCLUDE_DIR}")
endif()
