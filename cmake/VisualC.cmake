# Settings of Visual C++ for every target.
# /EHs in place of CMake's /EHsc: with the c, a function that is declared extern "C", as those of kbase.h are, is taken
# never to throw, and the clean-up around calls of it may be left out.
string(REGEX REPLACE "[/-]EH[a-z]+-?" "" CMAKE_CXX_FLAGS "${CMAKE_CXX_FLAGS}")
string(APPEND CMAKE_CXX_FLAGS " /EHs")
# Control Flow Guard: indirect calls are checked against the list of functions that the linker writes.
add_compile_options($<$<COMPILE_LANGUAGE:CXX>:/guard:cf>)
add_link_options(/guard:cf)
