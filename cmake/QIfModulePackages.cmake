# Debian packages, a component each; `cpack` in the folder of a build writes them to its packages/.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "QIfModule <qifmodule@localhost>")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

find_program(DPKG_ARCHITECTURE dpkg-architecture)
if(DPKG_ARCHITECTURE AND CMAKE_LIBRARY_ARCHITECTURE)
    execute_process(COMMAND ${DPKG_ARCHITECTURE} -f -t ${CMAKE_LIBRARY_ARCHITECTURE} -q DEB_HOST_ARCH
        OUTPUT_VARIABLE CPACK_DEBIAN_PACKAGE_ARCHITECTURE OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
endif()

# Libraries are looked up for the architecture of the packages; the platform's belong to no package yet.
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_LIST_DIR}/PackagesForArchitecture.cmake)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
if(QIFMODULE_PLATFORM_DIR)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${QIFMODULE_PLATFORM_DIR}/lib)
    set(CPACK_COMPONENTS_ALL plugin)
endif()

# Any other package that provides the platform replaces the stand-in.
set(CPACK_DEBIAN_PLATFORM_PACKAGE_NAME qifmodule-platform)
set(CPACK_COMPONENT_PLATFORM_DESCRIPTION "Stand-in for the platform that QIfModule runs on
 Container and controls, as a desktop host needs them; on the board the platform's own take their place.")
set(CPACK_DEBIAN_PLATFORM_PACKAGE_PROVIDES zel-platform)
set(CPACK_DEBIAN_PLATFORM_PACKAGE_CONFLICTS zel-platform)
set(CPACK_DEBIAN_PLATFORM_PACKAGE_REPLACES zel-platform)
set(CPACK_DEBIAN_PLATFORM_PACKAGE_DEPENDS "qml-module-qtquick2")

set(CPACK_DEBIAN_PLUGIN_PACKAGE_NAME qifmodule)
set(CPACK_COMPONENT_PLUGIN_DESCRIPTION "Configuration panel of the If step of an inspection flow
 A plug-in for Qt 5 flow editors: conditions on values of earlier steps, stored as they are edited.")
set(CPACK_DEBIAN_PLUGIN_PACKAGE_DEPENDS "qifmodule-platform | zel-platform")
set(CPACK_DEBIAN_PLUGIN_PACKAGE_RECOMMENDS "fonts-wqy-microhei")

set(CPACK_DEBIAN_WORKBENCH_PACKAGE_NAME if-workbench)
set(CPACK_DEBIAN_WORKBENCH_PACKAGE_SECTION science)
set(CPACK_COMPONENT_WORKBENCH_DESCRIPTION "Desktop host for the panels of QIfModule
 Shows an inspection flow, what its core holds for the If modules, and judges samples by it.")
set(CPACK_DEBIAN_WORKBENCH_PACKAGE_DEPENDS "qifmodule (= ${PROJECT_VERSION}), \
qifmodule-platform (= ${PROJECT_VERSION}), libqt5sql5-sqlite")
set(CPACK_DEBIAN_WORKBENCH_PACKAGE_RECOMMENDS "qttranslations5-l10n, fonts-dejavu-core")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME qifmodule-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Headers and CMake package for hosts of QIfModule
 The client of the core, the controls, and the units for a condition's name and stored text.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "qifmodule (= ${PROJECT_VERSION}), \
qifmodule-platform (= ${PROJECT_VERSION}), qtbase5-dev")

include(CPack)
