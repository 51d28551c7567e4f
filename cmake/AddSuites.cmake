# Runs inside ctest: lists the suites of SUITE_PROGRAM and adds an entry for each.
execute_process(
  COMMAND ${SUITE_EMULATOR} ${SUITE_PROGRAM} --gtest_list_tests
  WORKING_DIRECTORY ${SUITE_FOLDER}
  OUTPUT_VARIABLE suites_listed RESULT_VARIABLE suites_result ERROR_QUIET)
set(suites_found FALSE)
if(suites_result EQUAL 0)
  string(REGEX REPLACE "\r?\n" ";" suites_lines "${suites_listed}")
  foreach(suites_line IN LISTS suites_lines)
    if(suites_line MATCHES "^([A-Za-z_][A-Za-z0-9_/]*)\\.")
      set(suites_found TRUE)
      add_test("${SUITE_TARGET}.${CMAKE_MATCH_1}" ${SUITE_EMULATOR} ${SUITE_PROGRAM} "--gtest_filter=${CMAKE_MATCH_1}.*"
               --gtest_brief=1)
      set_tests_properties("${SUITE_TARGET}.${CMAKE_MATCH_1}" PROPERTIES
        WORKING_DIRECTORY ${SUITE_FOLDER} TIMEOUT 300 RESOURCE_LOCK wine)
    endif()
  endforeach()
endif()
if(NOT suites_found)
  # A program that cannot be asked is a failure with its name, not a shorter list.
  add_test("${SUITE_TARGET}.cannot_be_listed" ${SUITE_EMULATOR} ${SUITE_PROGRAM} --gtest_list_tests)
  set_tests_properties("${SUITE_TARGET}.cannot_be_listed" PROPERTIES WORKING_DIRECTORY ${SUITE_FOLDER} TIMEOUT 60
    FAIL_REGULAR_EXPRESSION ".*")
endif()
