# SPDX-License-Identifier: MIT

# A sanitizer only works when every object and every link step has it, hence no per-target setting.
if(TZSOAP_SANITIZERS)
    add_compile_options(-fsanitize=${TZSOAP_SANITIZERS} -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${TZSOAP_SANITIZERS})
endif()
