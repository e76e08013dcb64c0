# Refuses a yajl with the fault that checkYajl.cpp looks for: upstream's 2.1.0, which some package
# managers ship without the mend, loses bytes of valid text and reads past its end
# (CVE-2017-16516). Run once for each library found.

function(tessera_check_yajl)
    file(TIMESTAMP "${Yajl_LIBRARY}" time)
    if(Yajl_CHECKED_LIBRARY STREQUAL "${Yajl_LIBRARY} of ${time}")
        return()
    endif()
    if(CMAKE_CROSSCOMPILING AND NOT CMAKE_CROSSCOMPILING_EMULATOR)
        message(WARNING "Cross-compiling: ${Yajl_LIBRARY} was not checked for CVE-2017-16516")
        return()
    endif()
    unset(Yajl_CHECK_RESULT CACHE)
    unset(Yajl_CHECK_COMPILES CACHE)
    try_run(Yajl_CHECK_RESULT Yajl_CHECK_COMPILES
        ${CMAKE_CURRENT_BINARY_DIR}/checkYajl
        ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/checkYajl.cpp
        LINK_LIBRARIES Yajl::yajl
        CXX_STANDARD 17
        COMPILE_OUTPUT_VARIABLE output)
    if(NOT Yajl_CHECK_COMPILES)
        message(FATAL_ERROR "A small program with ${Yajl_LIBRARY} does not build:\n${output}")
    endif()
    if(NOT Yajl_CHECK_RESULT EQUAL 0)
        message(FATAL_ERROR
            "${Yajl_LIBRARY} is faulty: it loses bytes of strings with lone surrogates, or aborts "
            "(CVE-2017-16516). Debian's libyajl-dev, 2.1.0-3+deb12u2 or newer, has it mended. "
            "With -D Yajl_LIBRARY=... and -D Yajl_INCLUDE_DIR=... another yajl can be given.")
    endif()
    set(Yajl_CHECKED_LIBRARY "${Yajl_LIBRARY} of ${time}" CACHE INTERNAL "The yajl that passed the check")
endfunction()

tessera_check_yajl()
