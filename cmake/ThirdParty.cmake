# TinyXML 2.6.2 is the author's release in both builds: tools/setup fetches its source for the bench, vcpkg has a port.
# Only the bench uses GoogleTest and cpp-httplib.
set(SORVIK_THIRD_PARTY ${CMAKE_SOURCE_DIR}/build/third-party CACHE PATH "Sources that tools/setup has fetched")

if(SORVIK_BENCH AND NOT CMAKE_HOST_WIN32)
  set(tinyxml_dir ${SORVIK_THIRD_PARTY}/tinyxml/source)
  add_library(tinyxml STATIC
    ${tinyxml_dir}/tinyxml.cpp ${tinyxml_dir}/tinyxmlparser.cpp ${tinyxml_dir}/tinyxmlerror.cpp)
  target_include_directories(tinyxml SYSTEM PUBLIC ${tinyxml_dir})
  target_compile_definitions(tinyxml PUBLIC TIXML_USE_STL)

  add_library(cpp_httplib INTERFACE)
  target_include_directories(cpp_httplib SYSTEM INTERFACE ${SORVIK_THIRD_PARTY}/cpp-httplib/source)
  target_link_libraries(cpp_httplib INTERFACE ws2_32 crypt32)

  set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
  set(BUILD_SHARED_LIBS OFF)
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
  foreach(target gtest gmock)
    target_link_libraries(${target} PRIVATE sorvik_quick_build)
  endforeach()
else()
  find_package(tinyxml CONFIG REQUIRED)
  add_library(tinyxml INTERFACE)
  target_link_libraries(tinyxml INTERFACE unofficial-tinyxml::unofficial-tinyxml)
  find_path(TINYXML_INCLUDE tinyxml.h REQUIRED NO_CMAKE_FIND_ROOT_PATH)
  target_include_directories(tinyxml SYSTEM INTERFACE ${TINYXML_INCLUDE})
  target_compile_definitions(tinyxml INTERFACE TIXML_USE_STL)
endif()

if(SORVIK_BENCH AND CMAKE_HOST_WIN32)
  find_package(GTest CONFIG REQUIRED)
  find_package(httplib CONFIG REQUIRED)
  add_library(cpp_httplib INTERFACE)
  target_link_libraries(cpp_httplib INTERFACE httplib::httplib)
endif()
