# Writes to OUTPUT what makes each suite of the GoogleTest program PROGRAM a test of CTest's, named
# ROOM.Suite.
#
# A test of its own for each of a program's tests would start the program thousands of times.

cmake_minimum_required(VERSION 3.20)

execute_process(COMMAND ${PROGRAM} --gtest_list_tests
    OUTPUT_VARIABLE list COMMAND_ERROR_IS_FATAL ANY)
# Suites begin a line and end with a point; what their parameters are may follow.
string(REGEX MATCHALL "(^|\n)[A-Za-z0-9_/]+\\." lines "${list}")
set(tests "")
foreach(line IN LISTS lines)
    string(REGEX REPLACE "[\n.]" "" suite "${line}")
    string(APPEND tests
        "add_test([[${ROOM}.${suite}]] [[${PROGRAM}]] [[--gtest_filter=${suite}.*]] "
        "--gtest_brief=1)\n")
endforeach()
file(WRITE ${OUTPUT} "${tests}")
