# Fails unless the file TEXT contains the whole text of each file of the list PARTS.

file(READ ${TEXT} text)
foreach(part IN LISTS PARTS)
    file(READ ${part} wanted)
    string(FIND "${text}" "${wanted}" position)
    if(position EQUAL -1)
        message(FATAL_ERROR "${TEXT} does not contain ${part} as it stands")
    endif()
endforeach()
