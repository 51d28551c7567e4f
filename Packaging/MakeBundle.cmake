# Creates FOLDER, ARCHIVE.zip of it and ARCHIVE-symbols.zip, replacing existing ones.
# In: FOLDER, ARCHIVE, CONTENTS (PackageContents.xml), MODULE, SYMBOLS, VERSION, GUIDE (Markdown), ICON, MARKDOWN
# (cmark-gfm or pandoc), WEB_SERVER, SUPPORT, and separated by bars NOTICES (folders, one of which contains tinyxml.h),
# FILES (what else ships beside the module) and SIGN (a command that signs a file, or empty).
cmake_minimum_required(VERSION 3.22)

# Runs a command; stops with its output when it fails.
function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    list(JOIN ARGV " " command)
    message(FATAL_ERROR "${command}\n${output}")
  endif()
endfunction()

# Adds to each heading the anchor that GitHub generates, because cmark-gfm has none.
function(add_anchors variable)
  set(text "${${variable}}")
  string(REGEX MATCHALL "<h[2-6]>[^<]*</h" headings "${text}")
  foreach(heading IN LISTS headings)
    string(REGEX REPLACE "^<h([2-6])>(.*)</h$" "\\2" anchor "${heading}")
    string(TOLOWER "${anchor}" anchor)
    string(REGEX REPLACE "[^a-z0-9 _-]" "" anchor "${anchor}")
    string(REPLACE " " "-" anchor "${anchor}")
    string(REGEX REPLACE "^<h([2-6])>" "<h\\1 id=\"${anchor}\">" anchored "${heading}")
    string(REPLACE "${heading}" "${anchored}" text "${text}")
  endforeach()
  set(${variable} "${text}" PARENT_SCOPE)
endfunction()

# Embeds the pictures, which the guide references by path, in the page.
function(embed_pictures variable)
  set(text "${${variable}}")
  get_filename_component(folder ${GUIDE} DIRECTORY)
  string(REGEX MATCHALL "src=\"[^\"]+\"" sources "${text}")
  foreach(source IN LISTS sources)
    string(REGEX REPLACE "^src=\"(.*)\"$" "\\1" path "${source}")
    if(NOT EXISTS ${folder}/${path})
      message(FATAL_ERROR "${GUIDE} names the picture ${path}, which is not there.")
    endif()
    set(type image/png)
    if(path MATCHES "\\.svg$")
      set(type image/svg+xml)
    endif()
    file(READ ${folder}/${path} bytes HEX)
    string(REGEX REPLACE "(..)" "%\\1" bytes "${bytes}")
    string(REPLACE "${source}" "src=\"data:${type},${bytes}\"" text "${text}")
  endforeach()
  set(${variable} "${text}" PARENT_SCOPE)
endfunction()

# Writes the guide as a self-contained page with this build's version, web server and support address.
function(write_guide page)
  set(options --extension table)
  if(MARKDOWN MATCHES "pandoc")
    set(options --from gfm --to html --wrap none)
  endif()
  execute_process(COMMAND ${MARKDOWN} ${options} ${GUIDE} RESULT_VARIABLE result OUTPUT_FILE ${page}.body)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${MARKDOWN} could not convert ${GUIDE} to HTML.")
  endif()
  file(READ ${page}.body body)
  file(REMOVE ${page}.body)
  string(REGEX REPLACE "(<h1[^>]*>[^<]*)</h1>" "\\1, version ${VERSION}</h1>" body "${body}")
  string(REPLACE "http://klimora.sorvik.example" "${WEB_SERVER}" body "${body}")
  string(REPLACE "&" "&amp;" SUPPORT "${SUPPORT}")
  string(REPLACE "support.sorvik.example" "${SUPPORT}" body "${body}")
  add_anchors(body)
  embed_pictures(body)
  file(WRITE ${page} "<!DOCTYPE html>
<html lang=\"en\">
<head>
<meta charset=\"utf-8\">
<title>Sorvik silencers for Klimora</title>
<style>
body { font-family: \"Segoe UI\", sans-serif; line-height: 1.4; max-width: 60em; margin: 2em auto; padding: 0 1em; }
table { border-collapse: collapse; }
th, td { border: 1px solid #bbb; padding: 0.3em 0.6em; text-align: left; vertical-align: top; overflow-wrap: anywhere; }
img { max-width: 100%; }
</style>
</head>
<body>
${body}</body>
</html>
")
endfunction()

# Writes TinyXML's licence, from the header that the module was compiled with.
function(write_notices file)
  string(REPLACE "|" ";" folders "${NOTICES}")
  foreach(folder IN LISTS folders)
    if(EXISTS ${folder}/tinyxml.h)
      file(READ ${folder}/tinyxml.h header)
    endif()
  endforeach()
  string(FIND "${header}" "/*" begin)
  string(FIND "${header}" "*/" end)
  if(NOT begin EQUAL 0 OR end LESS 0)
    message(FATAL_ERROR "No tinyxml.h with a licence at its beginning in ${folders}.")
  endif()
  math(EXPR length "${end} - 2")
  string(SUBSTRING "${header}" 2 ${length} licence)
  string(STRIP "${licence}" licence)
  if(NOT licence MATCHES "This notice may not be removed")
    message(FATAL_ERROR "The licence of TinyXML was not found at the head of tinyxml.h.")
  endif()
  file(WRITE ${file} "Sorvik_R24_x64.arx contains TinyXML, under these terms:\n\n${licence}\n")
endfunction()

string(REPLACE "|" ";" FILES "${FILES}")
file(REMOVE_RECURSE ${FOLDER})
file(REMOVE ${ARCHIVE}.zip ${ARCHIVE}-symbols.zip)
file(MAKE_DIRECTORY ${FOLDER}/Contents)
file(COPY ${CONTENTS} DESTINATION ${FOLDER})
file(COPY ${MODULE} ${ICON} ${FILES} DESTINATION ${FOLDER}/Contents)
if(SIGN)
  string(REPLACE "|" ";" SIGN "${SIGN}")
  file(GLOB_RECURSE files ${FOLDER}/Contents/*)
  foreach(file IN LISTS files)
    if(file MATCHES "\\.([Aa][Rr][Xx]|[Ee][Xx][Ee]|[Dd][Ll][Ll])$")
      run(${SIGN} ${file})
    endif()
  endforeach()
endif()
write_guide(${FOLDER}/Contents/user-guide.html)
write_notices(${FOLDER}/Contents/third-party-notices.txt)

get_filename_component(name ${FOLDER} NAME)
get_filename_component(parent ${FOLDER} DIRECTORY)
run(${CMAKE_COMMAND} -E chdir ${parent} ${CMAKE_COMMAND} -E tar cf ${ARCHIVE}.zip --format=zip ${name})
get_filename_component(name ${SYMBOLS} NAME)
get_filename_component(parent ${SYMBOLS} DIRECTORY)
run(${CMAKE_COMMAND} -E chdir ${parent} ${CMAKE_COMMAND} -E tar cf ${ARCHIVE}-symbols.zip --format=zip ${name})
