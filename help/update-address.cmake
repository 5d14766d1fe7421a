# Puts the update address of a language file into a help page copied from the sources, where
# the page's "Check for updates" element names it as @UPDATE_URL@.
#
#   cmake -DPAGE=<copied page> -DLANGUAGE_FILE=<language file> -P update-address.cmake

cmake_minimum_required(VERSION 3.25)

if(NOT PAGE OR NOT LANGUAGE_FILE)
  message(FATAL_ERROR "usage: cmake -DPAGE=<file> -DLANGUAGE_FILE=<file> -P update-address.cmake")
endif()

file(STRINGS "${LANGUAGE_FILE}" lines REGEX "^updateurl=" ENCODING UTF-8)
list(LENGTH lines count)
if(NOT count EQUAL 1)
  message(FATAL_ERROR "${LANGUAGE_FILE} needs exactly one updateurl= line")
endif()
string(REGEX REPLACE "^updateurl=" "" address "${lines}")
# The page splits its command at blanks, and the address stands in an attribute.
if(address MATCHES "[ \"<>]" OR address STREQUAL "")
  message(FATAL_ERROR "${LANGUAGE_FILE}: the update address must be one word without quotes")
endif()
string(REPLACE "&" "&amp;" address "${address}")

file(READ "${PAGE}" text)
string(REPLACE "@UPDATE_URL@" "${address}" text "${text}")
file(WRITE "${PAGE}" "${text}")
