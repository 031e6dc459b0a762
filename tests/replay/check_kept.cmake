# Run with -P. The program's answers to the kept cases, in LOCALE if given, must be the kept answers byte for byte, apart
# from the words of the XML library.
execute_process(
    COMMAND "${REPLAY}" ${LOCALE} COMMAND sed -E -f "${CMAKE_CURRENT_LIST_DIR}/without_parser_words.sed"
    INPUT_FILE "${KEPT}/cases.jsonl" OUTPUT_FILE "${ANSWERS}" RESULTS_VARIABLE results)
if(NOT results STREQUAL "0;0")
    message(FATAL_ERROR "The replay program failed: ${results}")
endif()
execute_process(COMMAND diff "${KEPT}/answers.jsonl" "${ANSWERS}" OUTPUT_VARIABLE difference RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    string(SUBSTRING "${difference}" 0 3000 beginning)
    message(FATAL_ERROR "Answers differ from the kept ones (if that is intended, run tests/replay/keep.sh):\n${beginning}")
endif()
