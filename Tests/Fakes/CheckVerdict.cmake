# The exit code of the bench host: 0 on its own sample; 1, and each complaint in a sentence, on failing.script.
function(run_host script expected)
  execute_process(
    COMMAND ${EMULATOR} ${BENCHCAD} --s ${script} --out ${SCRATCH}
    RESULT_VARIABLE code OUTPUT_FILE ${SCRATCH}.txt ERROR_FILE ${SCRATCH}.txt)
  file(READ ${SCRATCH}.txt output)
  if(NOT code EQUAL expected)
    message(SEND_ERROR "${script} ended with ${code}, not ${expected}:\n${output}")
  endif()
  file(READ ${SCRATCH}.txt bytes HEX)  # as text, CMake drops carriage returns
  if(bytes MATCHES "^(..)*0d0a")
    message(SEND_ERROR "${script}: lines of the output end in a carriage return under Wine.")
  endif()
  foreach(sentence IN LISTS ARGN)
    if(NOT output MATCHES "${sentence}")
      message(SEND_ERROR "${script}: the host did not print '${sentence}':\n${output}")
    endif()
  endforeach()
endfunction()

run_host(${SAMPLE} 0
  "Command SorvSIL: committed" "The run succeeded" " 8  product family +SRC-250-900")
run_host(${FAILING} 1
  "The command NOSUCH is not known" "The command NOSUCH left 1 answer of" "The command SorvSIL did not commit"
  "never shown")
