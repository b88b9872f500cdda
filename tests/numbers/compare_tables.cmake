# Runs the table generator and compares its output with the committed file.
execute_process(COMMAND ${GENERATOR} ${OUTPUT} RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "the table generator failed: ${status}")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files --ignore-eol ${COMMITTED} ${OUTPUT}
                RESULT_VARIABLE differs)
if(NOT differs EQUAL 0)
    message(FATAL_ERROR "${COMMITTED} differs from the generator's output ${OUTPUT}; "
                        "rebuild it with the target regenerate_numbers_tables")
endif()
