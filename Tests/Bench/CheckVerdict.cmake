# The bench host's verdict: 0 on its own sample, 1 and each complaint in a sentence on failing.script.
function(run_host script expected)
  execute_process(
    COMMAND ${EMULATOR} ${BENCHCAD} --s ${script} --out ${SCRATCH}
    RESULT_VARIABLE code OUTPUT_VARIABLE said ERROR_VARIABLE said)
  if(NOT code EQUAL expected)
    message(SEND_ERROR "${script} ended with ${code}, not ${expected}:\n${said}")
  endif()
  foreach(sentence IN LISTS ARGN)
    if(NOT said MATCHES "${sentence}")
      message(SEND_ERROR "${script}: the host did not say '${sentence}':\n${said}")
    endif()
  endforeach()
endfunction()

run_host(${SAMPLE} 0
  "Command SorvSIL: committed" "All went as it should" " 8  product family +SRC-250-900")
run_host(${FAILING} 1
  "The command NOSUCH is not known" "The command NOSUCH left 1 answers" "The command SorvSIL did not commit"
  "it never came")
