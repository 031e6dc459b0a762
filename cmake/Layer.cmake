# corvane_layer(NAME HEADERS … SOURCES … LAYERS … LIBRARIES … TOOLKIT …)
#
# Makes the library corvane_NAME from the folder that calls it. LAYERS are the layers that it may include; LIBRARIES are
# other packages, private to its sources; TOOLKIT are the Qt modules that it uses, if any. Since all layers share one
# include root, a wrong include would compile; so the build also checks every file's includes against LAYERS and stops at
# the first that is not declared.
function(corvane_layer name)
    cmake_parse_arguments(PARSE_ARGV 1 layer "" "" "HEADERS;SOURCES;LAYERS;LIBRARIES;TOOLKIT")
    set(target corvane_${name})
    add_library(${target} STATIC ${layer_SOURCES})
    target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS "${CMAKE_SOURCE_DIR}/src" FILES ${layer_HEADERS})
    set_target_properties(${target} PROPERTIES VERIFY_INTERFACE_HEADER_SETS ON)
    list(TRANSFORM layer_LAYERS PREPEND corvane_ OUTPUT_VARIABLE layer_targets)
    target_link_libraries(${target}
        PUBLIC ${layer_targets} ${layer_TOOLKIT} PRIVATE corvane_settings ${layer_LIBRARIES})
    if(layer_TOOLKIT)
        set_target_properties(${target} PROPERTIES AUTOMOC ON)
        target_compile_options(${target} PRIVATE ${CORVANE_TOOLKIT_OPTIONS})
        if("Qt6::Widgets" IN_LIST layer_TOOLKIT)
            target_precompile_headers(${target} REUSE_FROM corvane_precompiled_window)
        endif()
    else()
        target_precompile_headers(${target} REUSE_FROM corvane_precompiled)
    endif()

    set(stamp "${CMAKE_CURRENT_BINARY_DIR}/includes-checked")
    set(files ${layer_HEADERS} ${layer_SOURCES})
    list(TRANSFORM files PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
    add_custom_command(
        OUTPUT "${stamp}"
        COMMAND "${CMAKE_COMMAND}" "-DLAYER=${name}" "-DMAY_INCLUDE=${layer_LAYERS}" "-DFILES=${files}"
                "-DTOOLKIT=${layer_TOOLKIT}"
                -P "${CMAKE_SOURCE_DIR}/cmake/CheckIncludes.cmake"
        COMMAND "${CMAKE_COMMAND}" -E touch "${stamp}"
        DEPENDS ${files} "${CMAKE_SOURCE_DIR}/cmake/CheckIncludes.cmake" "${CMAKE_CURRENT_LIST_FILE}"
        COMMENT "Checking what src/${name} includes"
        VERBATIM)
    add_custom_target(${target}_includes DEPENDS "${stamp}")
    add_dependencies(${target} ${target}_includes)
endfunction()
