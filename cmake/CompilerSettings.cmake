# One target that every other target links: the language, the warnings and the arithmetic that the results depend on.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CORVANE_CCACHE ccache)
if(CORVANE_CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${CORVANE_CCACHE}")
endif()

add_library(corvane_settings INTERFACE)
target_compile_options(corvane_settings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Werror
    # A fused a*b+c rounds once instead of twice: cut lists would differ from one processor to the next.
    -ffp-contract=off
    # Clang blames the library's own stable_sort on whoever calls it.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>)

set(CORVANE_SANITIZE "" CACHE STRING "Sanitizers for every target, as for -fsanitize=")
if(CORVANE_SANITIZE)
    target_compile_options(corvane_settings INTERFACE
        -fsanitize=${CORVANE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(corvane_settings INTERFACE -fsanitize=${CORVANE_SANITIZE})
endif()

option(CORVANE_FUZZ "Make the fuzz targets fuzzers (clang only)" OFF)
if(CORVANE_FUZZ)
    target_compile_options(corvane_settings INTERFACE -fsanitize=fuzzer-no-link)
endif()
