# Compiles Calls.cpp for the Microsoft ABI and compares its imports with decorated-names.txt, in both directions.
# In: CLANG, NM, HEADERS, SOURCES, SCRATCH.
execute_process(
  COMMAND ${CLANG} --target=x86_64-pc-windows-msvc -std=c++17 -ffreestanding -Wall -Wextra -Werror -Wno-unused-variable
          -I${HEADERS} -c ${SOURCES}/Calls.cpp -o ${SCRATCH}/Calls.obj
  RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "Calls.cpp does not compile for the Microsoft ABI.")
endif()
execute_process(COMMAND ${NM} -u ${SCRATCH}/Calls.obj OUTPUT_VARIABLE listed RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "The symbols of Calls.obj can not be listed.")
endif()

# Names of imported data carry a prefix of their own; names of the compiler's run-time library start with "_".
string(REGEX REPLACE "\n" ";" lines "${listed}")
set(imported)
foreach(line IN LISTS lines)
  string(REGEX REPLACE "^ *U +" "" name "${line}")
  string(REGEX REPLACE "^__imp_" "" name "${name}")
  if(name MATCHES "^[?a-z]")
    list(APPEND imported "${name}")
  endif()
endforeach()
file(STRINGS ${SOURCES}/decorated-names.txt expected REGEX "^[^#]")

set(missing ${expected})
list(REMOVE_ITEM missing ${imported})
set(surplus ${imported})
list(REMOVE_ITEM surplus ${expected})
list(LENGTH expected count)
if(missing OR surplus)
  string(REPLACE ";" "\n  " missing "${missing}")
  string(REPLACE ";" "\n  " surplus "${surplus}")
  message(FATAL_ERROR "Expected but not imported:\n  ${missing}\nImported but not expected:\n  ${surplus}")
endif()
if(count LESS 72)
  message(FATAL_ERROR "decorated-names.txt lists ${count} names only.")
endif()
message(STATUS "${count} decorated names agree.")
