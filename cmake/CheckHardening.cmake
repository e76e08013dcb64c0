# Fails unless LIBRARY resolves all its symbols at start (with which its tables are made read-only),
# runs no code on its stack, and checks its stack frames.

execute_process(
    COMMAND ${READELF} --dynamic --program-headers --symbols --wide ${LIBRARY}
    OUTPUT_VARIABLE contents
    COMMAND_ERROR_IS_FATAL ANY)
foreach(wanted IN ITEMS
        "FLAGS_1[^\n]*Flags: NOW"
        "GNU_RELRO"
        "GNU_STACK[^\n]* RW "
        "UND __stack_chk_fail")
    if(NOT contents MATCHES "${wanted}")
        message(SEND_ERROR "${LIBRARY} has no ${wanted}")
    endif()
endforeach()
