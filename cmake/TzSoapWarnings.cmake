# SPDX-License-Identifier: MIT

# The warnings every target of this project is built with; never passed on to its users.
function(tzsoap_set_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
    if(TZSOAP_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
endfunction()
