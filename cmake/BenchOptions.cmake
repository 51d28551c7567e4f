# Fakes, tests and GoogleTest are compiled with line numbers only and with the cheap optimisations, for a fast build:
# without inlining GCC writes a section for each of thousands of small functions, and the linker's time grows with the
# square of a file's sections. Visual C++ keeps the flags of its configuration.
add_library(sorvik_quick_build INTERFACE)
if(NOT MSVC)
  target_compile_options(sorvik_quick_build INTERFACE -Og -g1)
endif()

add_library(sorvik_bench_options INTERFACE)
target_link_libraries(sorvik_bench_options INTERFACE sorvik_warnings sorvik_quick_build)

# Precompiles the headers that nearly every test includes.
function(sorvik_precompile_test_headers target)
  target_precompile_headers(${target} PRIVATE
    <windows.h> <algorithm> <cstdio> <fstream> <functional> <map> <memory> <set> <sstream> <string> <vector> <gtest/gtest.h>)
endfunction()
