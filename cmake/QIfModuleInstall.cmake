# Where things are installed. Debian's folder for libraries is one of the architecture, cross-built too;
# the plug-in, which is not linked, has a folder of its own in it.

if(CMAKE_LIBRARY_ARCHITECTURE)
    set(CMAKE_INSTALL_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE} CACHE PATH "Folder of libraries")
endif()
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(QIFMODULE_INSTALL_SUBFOLDER qifmodule)
set(QIFMODULE_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/qifmodule)
file(RELATIVE_PATH QIFMODULE_INSTALL_FROM_PROGRAM
    ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR}/${QIFMODULE_INSTALL_SUBFOLDER})

# qif_install(<library> <component> [<subfolder>]): the library, also as QIfModule::<library>.
function(qif_install library component)
    install(TARGETS ${library} EXPORT QIfModuleTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/${ARGN} COMPONENT ${component}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
        INCLUDES DESTINATION ${QIFMODULE_INSTALL_INCLUDEDIR})
endfunction()

# qif_install_headers(<folder> <headers>...): to be included as <folder>/<header>.
function(qif_install_headers folder)
    install(FILES ${ARGN} DESTINATION ${QIFMODULE_INSTALL_INCLUDEDIR}/${folder} COMPONENT development)
endfunction()

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/QIfModule)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/QIfModuleConfig.cmake.in
    ${PROJECT_BINARY_DIR}/QIfModuleConfig.cmake INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/QIfModuleConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/QIfModuleConfig.cmake ${PROJECT_BINARY_DIR}/QIfModuleConfigVersion.cmake
    DESTINATION ${package_folder} COMPONENT development)
install(EXPORT QIfModuleTargets NAMESPACE QIfModule:: DESTINATION ${package_folder} COMPONENT development)
