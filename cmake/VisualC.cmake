# Settings of Visual C++ for every target.
# /EHs replaces CMake's /EHsc: with the c, the compiler assumes that extern "C" functions, such as those of kbase.h,
# never throw, and may omit the clean-up around their calls.
string(REGEX REPLACE "[/-]EH[a-z]+-?" "" CMAKE_CXX_FLAGS "${CMAKE_CXX_FLAGS}")
string(APPEND CMAKE_CXX_FLAGS " /EHs")
# Control Flow Guard: indirect calls are checked against the list of functions that the linker writes.
add_compile_options($<$<COMPILE_LANGUAGE:CXX>:/guard:cf>)
add_link_options(/guard:cf)
