# Makes search-index.js for search.htm from the pages of one help folder: each page's file
# name, title and text without markup. The search then runs in the page itself, from disk as
# well as from a plain web server.
#
#   cmake -DPAGES=<folder of the pages> -DOUTPUT=<search-index.js> -P search-index.cmake

cmake_minimum_required(VERSION 3.25)

if(NOT PAGES OR NOT OUTPUT)
  message(FATAL_ERROR "usage: cmake -DPAGES=<folder> -DOUTPUT=<file> -P search-index.cmake")
endif()
get_filename_component(PAGES "${PAGES}" ABSOLUTE)

# Drops everything from each OPEN marker up to and including the next CLOSE marker.
function(drop_between text open close result)
  string(LENGTH "${close}" close_length)
  while(TRUE)
    string(FIND "${text}" "${open}" begin)
    if(begin EQUAL -1)
      break()
    endif()
    string(SUBSTRING "${text}" ${begin} -1 tail)
    string(FIND "${tail}" "${close}" end)
    string(SUBSTRING "${text}" 0 ${begin} head)
    if(end EQUAL -1)
      set(text "${head}")
      break()
    endif()
    math(EXPR end "${end} + ${close_length}")
    string(SUBSTRING "${tail}" ${end} -1 tail)
    set(text "${head} ${tail}")
  endwhile()
  set(${result} "${text}" PARENT_SCOPE)
endfunction()

# The named entities the pages use; any other stays as written.
function(decode_entities text result)
  foreach(pair "nbsp| " "ldquo|“" "rdquo|”" "lsquo|‘" "rsquo|’" "ndash|–" "mdash|—"
               "hellip|…" "bull|•" "lt|<" "gt|>" "quot|\"" "amp|&")
    string(FIND "${pair}" "|" bar)
    string(SUBSTRING "${pair}" 0 ${bar} name)
    math(EXPR bar "${bar} + 1")
    string(SUBSTRING "${pair}" ${bar} -1 character)
    string(REPLACE "&${name};" "${character}" text "${text}")
  endforeach()
  set(${result} "${text}" PARENT_SCOPE)
endfunction()

function(js_string text result)
  string(REPLACE "\\" "\\\\" text "${text}")
  string(REPLACE "\"" "\\\"" text "${text}")
  set(${result} "\"${text}\"" PARENT_SCOPE)
endfunction()

# start.htm only redirects and search.htm is the search itself: neither is a result.
file(GLOB pages RELATIVE "${PAGES}" "${PAGES}/*.htm")
list(REMOVE_ITEM pages "start.htm" "search.htm")
list(SORT pages)

set(entries "")
foreach(page IN LISTS pages)
  file(READ "${PAGES}/${page}" html)
  string(REGEX REPLACE "[\r\n\t]+" " " html "${html}")

  string(REGEX MATCH "<title>([^<]*)</title>" ignored "${html}")
  set(title "${CMAKE_MATCH_1}")

  string(FIND "${html}" "<body" body_at)
  if(body_at EQUAL -1)
    set(body_at 0)
  endif()
  string(SUBSTRING "${html}" ${body_at} -1 text)
  drop_between("${text}" "<script" "</script>" text)
  drop_between("${text}" "<style" "</style>" text)
  drop_between("${text}" "<!--" "-->" text)
  # Inline markup sits inside words ("Larkspur<i>HHMMSS</i>.bat"); other tags part them.
  string(REGEX REPLACE "</?(a|b|i|em|strong|code|kbd|samp|span|mark|abbr)( [^>]*)?>" "" text
                       "${text}")
  string(REGEX REPLACE "<[^>]*>" " " text "${text}")
  decode_entities("${text}" text)
  decode_entities("${title}" title)
  string(REGEX REPLACE "  +" " " text "${text}")
  string(STRIP "${text}" text)
  string(STRIP "${title}" title)

  js_string("${page}" page_js)
  js_string("${title}" title_js)
  js_string("${text}" text_js)
  string(APPEND entries "  { page: ${page_js}, title: ${title_js},\n    text: ${text_js} },\n")
endforeach()

file(WRITE "${OUTPUT}"
     "// Made by the build from the pages of this folder (help/search-index.cmake).\n"
     "var helpPages = [\n${entries}];\n")
