# Runs COMMAND, its words joined by |, and compares what it prints with the file EXPECTED.
string(REPLACE "|" ";" COMMAND "${COMMAND}")
execute_process(COMMAND ${COMMAND} OUTPUT_VARIABLE printed RESULT_VARIABLE status)
string(REPLACE "\r\n" "\n" printed "${printed}")
file(READ ${EXPECTED} expected)
if(NOT status EQUAL 0 OR NOT printed STREQUAL expected)
  message(FATAL_ERROR "status ${status}, expected\n${expected}printed\n${printed}")
endif()
