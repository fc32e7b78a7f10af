# SPDX-License-Identifier: MIT
# The plug-in author's road, run by CTest: install the built project into a fresh prefix,
# build tests/install/plugin against it with find_package(Tessera) and tessera_add_plugin(),
# install the plug-in beside the installed tessera, and start that tessera, which must load
# the plug-in and exit through it.
#
# Expects: BUILD_DIR, SOURCE_DIR (tests/install), WORK_DIR, GENERATOR, BUILD_TYPE,
# CXX_COMPILER, CXX_FLAGS, LINKER_FLAGS.
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR}/run)
set(prefix ${WORK_DIR}/prefix)

function(run step)
    execute_process(COMMAND ${ARGN}
        RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output
        WORKING_DIRECTORY ${WORK_DIR}/run TIMEOUT 600)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${step} failed (${result}):\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

run("Installing the project" ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
foreach(path bin/tessera include/tessera/services/PluginEntryPoints.h
        include/tessera/tessera_export.h lib/cmake/Tessera/TesseraConfig.cmake)
    if(NOT EXISTS ${prefix}/${path})
        message(FATAL_ERROR "Not installed: ${path}")
    endif()
endforeach()
file(GLOB_RECURSE private_headers ${prefix}/include/*_p.h)
if(private_headers)
    message(FATAL_ERROR "Private headers installed: ${private_headers}")
endif()

run("Configuring the plug-in" ${CMAKE_COMMAND} -S ${SOURCE_DIR}/plugin -B ${WORK_DIR}/build
    -G ${GENERATOR} -DCMAKE_BUILD_TYPE=${BUILD_TYPE} -DCMAKE_PREFIX_PATH=${prefix}
    -DCMAKE_CXX_COMPILER=${CXX_COMPILER} "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}"
    "-DCMAKE_MODULE_LINKER_FLAGS=${LINKER_FLAGS}")
run("Building the plug-in" ${CMAKE_COMMAND} --build ${WORK_DIR}/build)
run("Installing the plug-in" ${CMAKE_COMMAND} --install ${WORK_DIR}/build --prefix ${prefix})
if(NOT EXISTS ${prefix}/bin/plugins/hello/libhello.so)
    message(FATAL_ERROR "The plug-in was not installed into bin/plugins/hello")
endif()

run("Starting the installed tessera" ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen
    XDG_CONFIG_HOME=${WORK_DIR}/config ${prefix}/bin/tessera)
if(NOT output MATCHES "hello plug-in: global state shared, answer 42")
    message(FATAL_ERROR "The installed tessera did not run the plug-in:\n${output}")
endif()
message(STATUS "${output}")
