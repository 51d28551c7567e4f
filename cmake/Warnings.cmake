# Warnings for our own code; third-party sources are left alone.
add_library(sorvik_warnings INTERFACE)
if(MSVC)
  # C4251: PluginStat is exported with std::string members. This is safe because the statistics library uses the same
  # compiler and C++ library.
  target_compile_options(sorvik_warnings INTERFACE /W4 /wd4251 /permissive- /utf-8)
  target_compile_definitions(sorvik_warnings INTERFACE _CRT_SECURE_NO_WARNINGS)
else()
  target_compile_options(sorvik_warnings INTERFACE -Wall -Wextra -Wpedantic -Werror)
endif()
target_compile_definitions(sorvik_warnings INTERFACE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)
