# Imported targets for a platform SDK: the libraries that the plug-in links and the control headers
# that it includes. Same target names as in platform/, so that the plug-in's build file serves both. The
# stand-in platform, installed, is such an SDK, too.

foreach(name ZelCommon QZelCommonControl)
    find_library(${name}_LIBRARY ${name}
        PATHS ${QIFMODULE_PLATFORM_DIR}/lib PATH_SUFFIXES ${CMAKE_LIBRARY_ARCHITECTURE}
        NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
    add_library(${name} SHARED IMPORTED)
    set_target_properties(${name} PROPERTIES IMPORTED_LOCATION ${${name}_LIBRARY})
endforeach()

find_path(QZelCommonControl_INCLUDE_DIR QZelCommonControl/ButtonSelecterView.h
    PATHS ${QIFMODULE_PLATFORM_DIR}/include PATH_SUFFIXES qifmodule
    NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
target_include_directories(QZelCommonControl INTERFACE ${QZelCommonControl_INCLUDE_DIR})
