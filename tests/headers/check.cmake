# SPDX-License-Identifier: MIT

# What including a public header costs. Needs CXX, INCLUDE_DIRS (a list) and HEADERS (soap/).

set(flags -std=c++20)
foreach(dir IN LISTS INCLUDE_DIRS)
    list(APPEND flags "-I${dir}")
endforeach()

# The headers that `header` includes, or its text after preprocessing: what the compiler prints
# with `mode` goes to `out`.
function(preprocess header out)
    execute_process(
        COMMAND ${CXX} ${flags} ${ARGN} -x c++ "${HEADERS}/${header}"
        OUTPUT_VARIABLE text
        ERROR_VARIABLE errors
        RESULT_VARIABLE failed)
    if(failed)
        message(FATAL_ERROR "${header}: ${errors}")
    endif()
    set(${out} "${text}" PARENT_SCOPE)
endfunction()

# Whoever uses handles does not see their bodies, and whoever sets limits does not see the parser.
file(GLOB handles RELATIVE "${HEADERS}" "${HEADERS}/*Type.h")
foreach(header IN LISTS handles ITEMS TzSoapBody.h TzSoapFault.h TzSoapHeader.h TzSoapMessage.h
                                      TzSoapReadLimits.h)
    preprocess(${header} included -MM)
    string(REGEX MATCHALL "[A-Za-z]+(Imp|SAXParser)\\.h" unwanted "${included}")
    if(unwanted)
        message(SEND_ERROR "${header} includes ${unwanted}")
    endif()
endforeach()

set(most 42000)
preprocess(TzSoapMessage.h text -E -P)
string(REGEX REPLACE "[^\n]*[^ \t\n][^\n]*\n" "x" lines "${text}")
string(REGEX REPLACE "[^x]" "" lines "${lines}")
string(LENGTH "${lines}" lines)
message(STATUS "TzSoapMessage.h: ${lines} lines that are not blank, at most ${most} are allowed")
if(lines GREATER most)
    message(SEND_ERROR "<soap/TzSoapMessage.h> has become too heavy")
endif()
