# Run with -P: the program's answers to the kept cases, in a LOCALE if one is given, must be the kept ones, byte for
# byte.
execute_process(
    COMMAND "${REPLAY}" ${LOCALE} INPUT_FILE "${KEPT}/cases.jsonl" OUTPUT_FILE "${ANSWERS}" RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "The replay program failed: ${result}")
endif()
execute_process(COMMAND diff "${KEPT}/answers.jsonl" "${ANSWERS}" OUTPUT_VARIABLE difference RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    string(SUBSTRING "${difference}" 0 3000 beginning)
    message(FATAL_ERROR "Answers differ from the kept ones (tests/replay/keep.sh, when that is meant):\n${beginning}")
endif()
