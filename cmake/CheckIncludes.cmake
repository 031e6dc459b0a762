cmake_minimum_required(VERSION 3.25)
# Run with -P: stops when one of FILES includes a layer that is neither LAYER nor in MAY_INCLUDE, or when a header
# includes a library that belongs in the sources (libxml2, ICU, Qt, POSIX).
foreach(file IN LISTS FILES)
    file(STRINGS "${file}" includes REGEX "^[ \t]*#[ \t]*include[ \t]")
    foreach(line IN LISTS includes)
        if(line MATCHES "\"([a-z_]+)/" AND NOT CMAKE_MATCH_1 STREQUAL LAYER AND NOT CMAKE_MATCH_1 IN_LIST MAY_INCLUDE)
            message(FATAL_ERROR "${file}: ${LAYER} may not include ${CMAKE_MATCH_1} (docs/architecture.md)")
        endif()
        if(file MATCHES "\\.h$" AND line MATCHES "<(libxml|unicode|Q|sys/|unistd|fcntl)")
            message(FATAL_ERROR "${file}: '${line}' belongs in a source file, not in a header (docs/architecture.md)")
        endif()
    endforeach()
endforeach()
