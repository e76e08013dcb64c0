# Has GDB run SCRIPT on PROGRAM and fails unless it prints exactly what the file EXPECTED holds. The
# printers are read from the file PRINTERS or, if a PREFIX is given instead, found by gdb itself for
# the library that is installed there, in LIBRARY_FOLDER.

unset(ENV{DEBUGINFOD_URLS})
set(ENV{LC_ALL} C.UTF-8)
# It does not work in a program that is watched.
set(ENV{ASAN_OPTIONS} detect_leaks=0)

if(PREFIX)
    set(ENV{LD_LIBRARY_PATH} ${PREFIX}/${LIBRARY_FOLDER})
    set(scripts ${PREFIX}/share/gdb/auto-load)
    set(find_printers
        -iex "set auto-load scripts-directory ${scripts}"
        -iex "set auto-load safe-path ${scripts}")
else()
    # Without those of the standard library, which a user need not have.
    set(find_printers -iex "set auto-load python-scripts off" -iex "source ${PRINTERS}")
endif()

execute_process(
    COMMAND ${GDB} -nx -batch ${find_printers} -iex "set width 0"
        -x ${CMAKE_CURRENT_LIST_DIR}/start.py -x ${SCRIPT} ${PROGRAM}
    OUTPUT_VARIABLE printed
    ERROR_VARIABLE complaints
    RESULT_VARIABLE result)
file(READ ${EXPECTED} expected)
if(NOT result EQUAL 0 OR NOT printed STREQUAL expected OR complaints MATCHES "Python|Traceback")
    message(FATAL_ERROR "expected:\n${expected}\nprinted:\n${printed}\n"
        "ended with ${result} and said:\n${complaints}")
endif()
