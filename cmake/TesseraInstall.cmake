# SPDX-License-Identifier: MIT
# Installs the host library, its headers and a CMake package so that a plug-in builds
# outside this tree with find_package(Tessera) and tessera_add_plugin().
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS libtessera tessera
    EXPORT TesseraTargets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tessera)
# The plug-in interface only: the private *_p.h headers stay behind.
foreach(header ${TES_PUBLIC_HEADERS})
    get_filename_component(folder ${header} DIRECTORY)
    install(FILES ${PROJECT_SOURCE_DIR}/src/${header}
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tessera/${folder})
endforeach()
install(FILES ${CMAKE_BINARY_DIR}/include/tessera_export.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tessera)
install(EXPORT TesseraTargets
    NAMESPACE Tessera::
    FILE TesseraTargets.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Tessera)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/TesseraConfig.cmake.in
    ${CMAKE_BINARY_DIR}/TesseraConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Tessera)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/TesseraConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${CMAKE_BINARY_DIR}/TesseraConfig.cmake
    ${CMAKE_BINARY_DIR}/TesseraConfigVersion.cmake
    ${PROJECT_SOURCE_DIR}/cmake/TesseraPlugin.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Tessera)
