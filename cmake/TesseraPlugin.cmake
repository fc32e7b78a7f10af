# SPDX-License-Identifier: MIT
# tessera_add_plugin(<name> SOURCES <files...> [OUTPUT_DIRECTORY <dir>] [INSTALL_DESTINATION <dir>])
#
# Builds a plug-in as a MODULE library linked to the host library, with hidden symbols (inline
# ones too), placed in <build>/bin/plugins/<name>/ where a freshly built tessera looks for it,
# or in OUTPUT_DIRECTORY. It is installed into <INSTALL_DESTINATION>/<name>, by default
# bin/plugins/<name> beside the installed tessera; INSTALL_DESTINATION NONE installs nothing.
# Unknown arguments are an error.
function(tessera_add_plugin name)
    cmake_parse_arguments(ARG "" "OUTPUT_DIRECTORY;INSTALL_DESTINATION" "SOURCES" ${ARGN})
    if(ARG_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "tessera_add_plugin(${name}): unknown arguments: ${ARG_UNPARSED_ARGUMENTS}")
    endif()
    if(NOT ARG_SOURCES)
        message(FATAL_ERROR "tessera_add_plugin(${name}): no SOURCES given")
    endif()
    if(NOT ARG_OUTPUT_DIRECTORY)
        set(ARG_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin/plugins/${name})
    endif()
    if(NOT ARG_INSTALL_DESTINATION)
        set(ARG_INSTALL_DESTINATION bin/plugins)
    endif()
    add_library(${name} MODULE ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE Tessera::Host)
    set_target_properties(${name} PROPERTIES
        PREFIX "lib"
        AUTOMOC ON
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        LIBRARY_OUTPUT_DIRECTORY ${ARG_OUTPUT_DIRECTORY})
    if(NOT ARG_INSTALL_DESTINATION STREQUAL "NONE")
        install(TARGETS ${name} LIBRARY DESTINATION ${ARG_INSTALL_DESTINATION}/${name})
    endif()
endfunction()
