# Fails unless the shared library LIBRARY exports what the file EXPECTED lists: names as NM
# demangles them, sorted. With RENEW=ON it writes the file.

cmake_minimum_required(VERSION 3.20)

execute_process(COMMAND ${NM} -D --defined-only --demangle ${LIBRARY}
    OUTPUT_VARIABLE table COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "[0-9a-f]+ [A-Za-z] ([^\n]*)\n" "\\1;" symbols "${table}")
# Inline, and exported at the compiler's discretion.
set(templates "(TBasicElement|TypeException|ValueOutOfRange)")
list(FILTER symbols EXCLUDE REGEX
    "^zo::Tessera::${templates}<.*>::${templates}\\(zo::Tessera::${templates}<.*> const&\\)$")
list(REMOVE_ITEM symbols "")
list(REMOVE_DUPLICATES symbols)
list(SORT symbols)

if(RENEW)
    list(JOIN symbols "\n" text)
    file(WRITE ${EXPECTED} "${text}\n")
    return()
endif()

file(STRINGS ${EXPECTED} expected)
set(new ${symbols})
list(REMOVE_ITEM new ${expected})
set(missing ${expected})
list(REMOVE_ITEM missing ${symbols})
if(new OR missing)
    list(JOIN new "\n" new)
    list(JOIN missing "\n" missing)
    message(FATAL_ERROR "${LIBRARY} does not export what ${EXPECTED} lists.\nnew:\n${new}\n"
        "missing:\n${missing}\nIf this is meant, renew the file:\n${CMAKE_COMMAND} -DNM=${NM} "
        "-DLIBRARY=${LIBRARY} -DEXPECTED=${EXPECTED} -DRENEW=ON -P ${CMAKE_SCRIPT_MODE_FILE}")
endif()
