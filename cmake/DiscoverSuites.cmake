# sorvik_discover_suites(target): one ctest entry for every GoogleTest suite of a test program, found by asking the
# program itself when ctest starts, so that no written suite can stay unrun. Wine starts cost time; an entry a case would
# spend most of a run on them. Suites of one machine share Wine's registry and running object table, so they take turns.
function(sorvik_discover_suites target)
  set(include_file ${CMAKE_CURRENT_BINARY_DIR}/${target}_suites.cmake)
  file(WRITE ${include_file} "
set(SUITE_PROGRAM \"${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${target}.exe\")
set(SUITE_EMULATOR \"${CMAKE_CROSSCOMPILING_EMULATOR}\")
set(SUITE_FOLDER \"${CMAKE_RUNTIME_OUTPUT_DIRECTORY}\")
set(SUITE_TARGET ${target})
include(\"${CMAKE_SOURCE_DIR}/cmake/AddSuites.cmake\")
")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${include_file})
endfunction()
