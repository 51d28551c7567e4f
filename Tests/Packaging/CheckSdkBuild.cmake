# Checks the build for AutoCAD (SORVIK_BENCH=OFF) as far as possible without Windows, and the settings that it must reject.
# It builds a copy of the repository without Bench, Tests and our own declarations of ObjectARX and Klimora. A folder with
# the SDK's layout contains those declarations and the fakes' import libraries; another one replaces Klimora's headers.
# In: SOURCE, SCRATCH, TOOLCHAIN, LIBRARIES (folder of the bench's libraries), PREFIX (where TinyXML is installed as vcpkg
# does it), PYTHON, VERSION, PART (refusals, visualc or build).
cmake_minimum_required(VERSION 3.22)
file(REMOVE_RECURSE ${SCRATCH})
set(copy ${SCRATCH}/source)
file(COPY ${SOURCE}/CMakeLists.txt ${SOURCE}/cmake ${SOURCE}/Packaging ${SOURCE}/PlugIn ${SOURCE}/docs DESTINATION ${copy})
file(COPY ${SOURCE}/Platform DESTINATION ${copy}
  PATTERN objectarx EXCLUDE PATTERN klimora EXCLUDE PATTERN kbase EXCLUDE PATTERN statistics EXCLUDE)

set(sdk ${SCRATCH}/sdk)
file(GLOB headers ${SOURCE}/Platform/objectarx/*.h)
file(COPY ${headers} DESTINATION ${sdk}/inc)
file(MAKE_DIRECTORY ${sdk}/inc-x64 ${sdk}/lib-x64)
configure_file(${LIBRARIES}/libaccore.dll.a ${sdk}/lib-x64/accore.lib COPYONLY)
configure_file(${LIBRARIES}/librxapi.a ${sdk}/lib-x64/rxapi.lib COPYONLY)
# Sets the SDK's release.
function(write_release major minor)
  file(WRITE ${sdk}/inc/id.h "#pragma once\n#define ACADV_RELMAJOR ${major}\n# define\tACADV_RELMINOR\t( ${minor} )\n")
endfunction()
write_release(24 0)  # AutoCAD 2021
foreach(name ac1st24 acdb24 acge24)  # the fake has all of them in accore.dll
  file(WRITE ${sdk}/lib-x64/${name}.lib "!<arch>\n")
endforeach()

# Klimora's headers: ours with other identifiers, and without the mark that the build rejects.
set(klimora ${SCRATCH}/klimora)
configure_file(${SOURCE}/Platform/kbase/kbase.h ${klimora}/kbase.h COPYONLY)
configure_file(${SOURCE}/Platform/statistics/KlimoraPluginsStatisticsWrapper.h ${klimora}/KlimoraPluginsStatisticsWrapper.h COPYONLY)
file(READ ${SOURCE}/Platform/klimora/KLIMCOMSRVLib.h header)
string(REPLACE "#define KLIMORA_PLACEHOLDER_INTERFACES" "" header "${header}")
string(REPLACE "0x6d1f0a3" "0x12345a3" header "${header}")
file(WRITE ${klimora}/KLIMCOMSRVLib.h "${header}")

set(beside ${SCRATCH}/CAD_Connection_UI_x64.exe ${SCRATCH}/Klimora.Plugins.Statistics.Sorvik.dll)
foreach(file IN LISTS beside)
  file(WRITE ${file} "stands for what ships beside the module\n")
endforeach()

string(REPLACE ";" "\\;" shipped "${beside}")
set(common -G Ninja -S ${copy} -DSORVIK_BENCH=OFF -DCMAKE_PREFIX_PATH=${PREFIX} -DKBASE_LIBRARY=${LIBRARIES}/libKbase640.dll.a
  -DKLIMORA_STATISTICS_LIBRARY=${LIBRARIES}/libKlimora.Plugins.Statistics.Sorvik.dll.a
  -DCMAKE_BUILD_TYPE=Release -DOBJECTARX_SDK=${sdk} -DKLIMORA_INCLUDE=${klimora}
  -DSORVIK_WEB_SERVER=http://server.of.the.manufacturer
  "-DSORVIK_HOME_PAGE=https://page.of.the.manufacturer/?a=1&b=2" "-DSORVIK_SUPPORT=https://support.of.the.manufacturer/?a=1&b=2"
  "-DSORVIK_BUNDLE_FILES=${shipped}")
set(configure ${CMAKE_COMMAND} --toolchain ${TOOLCHAIN})

# Checks that a wrong setting ends the configuration with one error of the given text. All cases share one folder, so that
# CMake examines the compiler only once.
function(refuses case settings text)
  execute_process(COMMAND ${configure} ${common} ${settings} -B ${SCRATCH}/build
    RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE messages)
  string(REGEX REPLACE "[ \n]+" " " messages "${messages}")
  string(REGEX MATCHALL "CMake Error" errors "${messages}")
  if(result EQUAL 0)
    message(SEND_ERROR "${case} is not rejected.")
  elseif(NOT messages MATCHES "${text}" OR NOT errors STREQUAL "CMake Error")
    message(SEND_ERROR "${case} is rejected with another message: ${messages}")
  endif()
endfunction()

# Checks that the configuration succeeds with a setting, but a target fails with the given text and no zip is made.
function(refuses_target case target setting text)
  execute_process(COMMAND ${configure} ${common} ${setting} -B ${SCRATCH}/build
    RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE messages)
  if(NOT result EQUAL 0)
    message(SEND_ERROR "${case}: the configuration failed.\n${messages}")
    return()
  endif()
  execute_process(COMMAND ${CMAKE_COMMAND} --build ${SCRATCH}/build --target ${target}
    RESULT_VARIABLE result OUTPUT_VARIABLE messages ERROR_VARIABLE messages)
  file(GLOB made ${SCRATCH}/build/Sorvik*.zip)
  if(result EQUAL 0)
    message(SEND_ERROR "${case} is not rejected.")
  elseif(NOT messages MATCHES "${text}" OR made)
    message(SEND_ERROR "${case} is rejected with another message: ${made} ${messages}")
  endif()
endfunction()

if(PART STREQUAL "refusals")
  refuses(no_sdk "-DOBJECTARX_SDK=" "OBJECTARX_SDK is not set")
  refuses(wrong_sdk "-DOBJECTARX_SDK=${sdk}/inc" "is no ObjectARX SDK of release 24: inc/acdocman.h")
  file(REMOVE ${sdk}/lib-x64/acdb24.lib)
  refuses(other_release "" "lib-x64/acdb24.lib is missing")
  file(WRITE ${sdk}/lib-x64/acdb24.lib "!<arch>\n")
  write_release(24 3)
  refuses(later_release "" "release 24.3, but SORVIK_SDK_RELEASE is 24.0")
  file(REMOVE ${sdk}/inc/id.h)
  refuses(no_release "" "does not say its release")
  write_release(24 0)
  refuses(debug_build "-DCMAKE_BUILD_TYPE=Debug" "CMAKE_BUILD_TYPE is \"Debug\"")
  refuses(no_klimora "-DKLIMORA_INCLUDE=" "KLIMORA_INCLUDE is not set")
  refuses(incomplete_klimora "-DKLIMORA_INCLUDE=${SOURCE}/Platform/klimora" "which lacks kbase.h")
  set(assumptions PlugIn/CMakeFiles/sorvik_plugin.dir/InterfaceAssumptions.cpp.obj)
  file(READ ${SOURCE}/Platform/kbase/kbase.h header)
  string(REPLACE "short attribute, const void* value, short count" "int attribute, const void* value, short count" header "${header}")
  file(WRITE ${klimora}/kbase.h "${header}")
  refuses_target(other_signature ${assumptions} "" "static assertion failed")
  configure_file(${SOURCE}/Platform/kbase/kbase.h ${klimora}/kbase.h COPYONLY)
  configure_file(${SOURCE}/Platform/klimora/KLIMCOMSRVLib.h ${klimora}/KLIMCOMSRVLib.h COPYONLY)
  refuses(placeholder_copy "" "whose KLIMCOMSRVLib.h holds the placeholder")
  file(WRITE ${klimora}/KLIMCOMSRVLib.h "#include \"${SOURCE}/Platform/klimora/KLIMCOMSRVLib.h\"\n")
  refuses_target(placeholder_include ${assumptions} "" "KLIMORA_INCLUDE leads to the placeholder")
  foreach(address SORVIK_WEB_SERVER SORVIK_HOME_PAGE SORVIK_SUPPORT)
    refuses(${address} "-D${address}=https://x.sorvik.example/" "${address} is .* a placeholder")
  endforeach()
  refuses_target(no_files bundle "-DSORVIK_BUNDLE_FILES=" "SORVIK_BUNDLE_FILES is empty")
  refuses(missing_file "-DSORVIK_BUNDLE_FILES=${SCRATCH}/no_file" "SORVIK_BUNDLE_FILES names")
  write_release(25 0)
  refuses(next_series "-DSORVIK_SDK_RELEASE=25.0" "release 25.0, which builds no module")  # the cache keeps the setting
  return()
endif()

# Clang under Visual C++'s name runs the CMake code for that compiler. Nothing is compiled.
if(PART STREQUAL "visualc")
  find_program(clang clang++ REQUIRED)
  file(CREATE_LINK ${clang} ${SCRATCH}/clang-cl SYMBOLIC)
  execute_process(
    COMMAND ${CMAKE_COMMAND} ${common} -DCMAKE_SYSTEM_NAME=Windows -DCMAKE_CXX_COMPILER=${SCRATCH}/clang-cl
            -DCMAKE_CXX_COMPILER_WORKS=ON -DCMAKE_RC_COMPILER=true -DCMAKE_LINKER=true -DCMAKE_MT=true -B ${SCRATCH}/build
    COMMAND_ERROR_IS_FATAL ANY)
  file(READ ${SCRATCH}/build/build.ninja rules)
  if(NOT rules MATCHES " FLAGS = [^\n]*/EHs [^\n]*/guard:cf" OR NOT rules MATCHES " LINK_FLAGS = [^\n]*/guard:cf" OR rules MATCHES "/EHsc")
    message(FATAL_ERROR "The module is not compiled with /EHs and /guard:cf and linked with /guard:cf.")
  endif()
  return()
endif()

# An SDK of AutoCAD 2022, whose release the bundle adopts, and a signer that marks the files.
write_release(24 1)
file(WRITE ${SCRATCH}/sign "test \"$1\" = /q && printf SIGNED >>\"$2\"\n")
execute_process(COMMAND ${configure} ${common} -DSORVIK_SDK_RELEASE=24.1 "-DSORVIK_SIGN=sh;${SCRATCH}/sign;/q" -B ${SCRATCH}/build
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${SCRATCH}/build --target bundle COMMAND_ERROR_IS_FATAL ANY)
execute_process(
  COMMAND ${PYTHON} ${SOURCE}/Tests/Packaging/check_bundle.py ${SCRATCH}/build/Sorvik.bundle ${SCRATCH}/build/Sorvik-${VERSION}
          ${VERSION} R24.1 SIGNED ${copy}/PlugIn/Lib/ModuleIdentity.h ${beside}
  COMMAND_ERROR_IS_FATAL ANY)
file(READ ${SCRATCH}/build/Sorvik.bundle/Contents/user-guide.html guide)
if(NOT guide MATCHES "http://server.of.the.manufacturer" OR NOT guide MATCHES "https://support.of.the.manufacturer/.a=1&amp;b=2"
   OR guide MATCHES "sorvik.example")
  message(FATAL_ERROR "The guide does not give the server and the support address that the module was built for.")
endif()

file(WRITE ${SCRATCH}/sign "echo no certificate\nexit 1\n")
file(TOUCH ${copy}/docs/user-guide.md)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${SCRATCH}/build --target bundle
  RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
if(result EQUAL 0 OR NOT output MATCHES "no certificate" OR EXISTS ${SCRATCH}/build/Sorvik-${VERSION}.zip)
  message(FATAL_ERROR "A file that could not be signed was packed.\n${output}")
endif()
