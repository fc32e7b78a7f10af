# tessera_add_plugin(<name> SOURCES <files...>)
#
# Builds a plug-in as a MODULE library linked to the host library, placed in
# <build>/bin/plugins/<name>/ where a freshly built tessera looks for it.
function(tessera_add_plugin name)
    cmake_parse_arguments(ARG "" "OUTPUT_DIRECTORY" "SOURCES" ${ARGN})
    if(NOT ARG_OUTPUT_DIRECTORY)
        set(ARG_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin/plugins/${name})
    endif()
    add_library(${name} MODULE ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE Tessera::Host)
    set_target_properties(${name} PROPERTIES
        PREFIX "lib"
        AUTOMOC ON
        CXX_VISIBILITY_PRESET hidden
        LIBRARY_OUTPUT_DIRECTORY ${ARG_OUTPUT_DIRECTORY})
endfunction()
