# Writes the names of a test program's suites to a file, one a line, each with its period.
#   cmake -D PROGRAM=... -D FILTER=... -D LIST=... -P list_suites.cmake
execute_process(COMMAND "${PROGRAM}" --gtest_list_tests "--gtest_filter=${FILTER}"
    OUTPUT_VARIABLE names TIMEOUT 60 COMMAND_ERROR_IS_FATAL ANY)
# "Suite.", with "  # TypeParam = ..." behind it if it is a typed one. Its tests are indented.
string(REGEX MATCHALL "(^|\n)[A-Za-z0-9_/]+\\." suites "${names}")
list(TRANSFORM suites STRIP)
if(NOT suites)
    message(FATAL_ERROR "${PROGRAM} has no suites for the filter '${FILTER}'")
endif()
list(JOIN suites "\n" lines)
file(WRITE "${LIST}" "${lines}\n")
