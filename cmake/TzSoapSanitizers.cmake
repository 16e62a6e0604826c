# SPDX-License-Identifier: MIT

# A sanitizer only works when every object and every link step has it, hence no per-target setting.
if(TZSOAP_SANITIZERS)
    add_compile_options(-fsanitize=${TZSOAP_SANITIZERS} -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${TZSOAP_SANITIZERS})
endif()

# The libraries under a fuzzer must report the branches they take.
if(TZSOAP_BUILD_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
    # They look twice where one source of XML events hands over to the other.
    add_compile_definitions(TZSOAP_CHECK_HANDOVER)
endif()

# Each block of code that runs calls a function of the program, which counts: see tests/growth.
if(TZSOAP_COUNT_WORK)
    add_compile_options(-fsanitize-coverage=trace-pc)
endif()

# Indices and iterators of standard containers are checked wherever speed does not matter.
if(TZSOAP_SANITIZERS OR CMAKE_BUILD_TYPE STREQUAL "Debug")
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()
