# Fakes, tests and GoogleTest are compiled without optimisation and with line numbers only, for a fast build. Visual C++
# keeps the flags of its configuration.
add_library(sorvik_quick_build INTERFACE)
if(NOT MSVC)
  target_compile_options(sorvik_quick_build INTERFACE -O0 -g1)
endif()

add_library(sorvik_bench_options INTERFACE)
target_link_libraries(sorvik_bench_options INTERFACE sorvik_warnings sorvik_quick_build)

# Precompiles the headers that nearly every test includes.
function(sorvik_precompile_test_headers target)
  target_precompile_headers(${target} PRIVATE
    <windows.h> <algorithm> <cstdio> <fstream> <functional> <map> <memory> <set> <sstream> <string> <vector> <gtest/gtest.h>)
endfunction()
