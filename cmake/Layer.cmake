# add_meta_objects(TARGET FILES…): runs the toolkit's moc on the headers among FILES and adds what it writes. AUTOMOC lets
# moc read the toolkit's own headers for each of ours, of which it needs none; in a new build that is 13 s of a processor.
function(add_meta_objects target)
    set(headers ${ARGN})
    list(FILTER headers INCLUDE REGEX "\\.h$")
    set(written)
    foreach(header IN LISTS headers)
        string(MAKE_C_IDENTIFIER "${header}" name)
        set(output "${CMAKE_CURRENT_BINARY_DIR}/moc/${name}.cpp")
        add_custom_command(
            OUTPUT "${output}"
            COMMAND Qt6::moc --no-notes "${CMAKE_CURRENT_SOURCE_DIR}/${header}" -o "${output}"
            DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${header}"
            VERBATIM)
        list(APPEND written "${output}")
    endforeach()
    set(joined "${CMAKE_CURRENT_BINARY_DIR}/moc/meta_objects.cpp")
    list(TRANSFORM written REPLACE "(.+)" "#include \"\\1\"" OUTPUT_VARIABLE includes)
    list(JOIN includes "\n" includes)
    file(CONFIGURE OUTPUT "${joined}" CONTENT "${includes}\n" @ONLY)
    set_source_files_properties("${joined}" PROPERTIES
        OBJECT_DEPENDS "${written}" SKIP_UNITY_BUILD_INCLUSION ON)
    target_sources(${target} PRIVATE "${joined}")
endfunction()

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
        add_meta_objects(${target} ${layer_HEADERS} ${layer_SOURCES})
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
