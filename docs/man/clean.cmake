# Every page of PAGES goes through two formatters without a word from either.
find_program(GROFF groff REQUIRED)
find_program(MANDOC mandoc REQUIRED)
foreach(page IN LISTS PAGES)
    execute_process(COMMAND ${GROFF} -man -Kutf8 -Tutf8 -ww -z ${page}
        OUTPUT_VARIABLE said ERROR_VARIABLE said RESULT_VARIABLE result)
    if(said OR result)
        message(SEND_ERROR "${page}: groff says: ${said}")
    endif()
    execute_process(COMMAND ${MANDOC} -T lint -W warning ${page}
        OUTPUT_VARIABLE said ERROR_VARIABLE said RESULT_VARIABLE result)
    if(said OR result)
        message(SEND_ERROR "${page}: mandoc says: ${said}")
    endif()
endforeach()
