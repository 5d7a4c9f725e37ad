# Every target of the tree is made through these functions, so that language level, warnings,
# visibility and sanitizers are decided in one place.

set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)

function(qif_configure_target target)
    target_compile_features(${target} PUBLIC cxx_std_17)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        AUTOMOC ON
        AUTOUIC ON)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wno-sign-conversion -Wshadow)
    target_compile_definitions(${target} PRIVATE QT_DEPRECATED_WARNINGS)
    if(QIFMODULE_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    if(QIFMODULE_SANITIZE)
        set(flags -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -g1)
        target_compile_options(${target} PRIVATE ${flags})
        target_link_options(${target} PRIVATE ${flags})
    endif()
    if(QIFMODULE_FUZZ)
        target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
endfunction()

# qif_add_library(<name> <STATIC|SHARED|MODULE|OBJECT> <sources>...)
function(qif_add_library name kind)
    add_library(${name} ${kind} ${ARGN})
    qif_configure_target(${name})
endfunction()

# qif_include_folder(<target> <PUBLIC|INTERFACE> <folder> [<headers>...]): its headers, or only these, can be
# included as <name>/<header>, and nothing outside the folder can.
function(qif_include_folder target scope folder)
    get_filename_component(name ${folder} NAME)
    set(root ${PROJECT_BINARY_DIR}/include/${target})
    if(ARGN)
        file(MAKE_DIRECTORY ${root}/${name})
        foreach(header ${ARGN})
            file(CREATE_LINK ${folder}/${header} ${root}/${name}/${header} SYMBOLIC)
        endforeach()
    else()
        file(MAKE_DIRECTORY ${root})
        file(CREATE_LINK ${folder} ${root}/${name} SYMBOLIC)
    endif()
    target_include_directories(${target} ${scope} $<BUILD_INTERFACE:${root}>)
endfunction()

# qif_add_executable(<name> <sources>...)
function(qif_add_executable name)
    add_executable(${name} ${ARGN})
    qif_configure_target(${name})
endfunction()

# qif_set_test_environment(<test> [XVFB]): what a ctest entry runs in: without a display, or with XVFB on
# the X server that its command starts.
function(qif_set_test_environment test)
    cmake_parse_arguments(arg "XVFB" "" "" ${ARGN})
    # No settings and caches of the user, and no event loop of glib, which leaks.
    set(environment "LC_ALL=C.UTF-8" "QT_QPA_PLATFORM=$<IF:$<BOOL:${arg_XVFB}>,xcb,offscreen>"
        "XDG_CONFIG_HOME=${PROJECT_BINARY_DIR}/config" "QML_DISABLE_DISK_CACHE=1" "QT_NO_GLIB=1")
    if(QIFMODULE_SANITIZE)
        # X11's keyboard library copies strings by their length, which the strict check takes for an error;
        # drawing libraries that are unloaded by then can only be recognised by their callers.
        set(strict $<NOT:$<BOOL:${arg_XVFB}>>)
        list(APPEND environment
            "ASAN_OPTIONS=detect_leaks=1:strict_string_checks=${strict}:fast_unwind_on_malloc=${strict}:detect_stack_use_after_return=1"
            "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0"
            "UBSAN_OPTIONS=print_stacktrace=1")
    endif()
    set_tests_properties(${test} PROPERTIES ENVIRONMENT "${environment}" TIMEOUT 300)
endfunction()

# qif_add_test(<name> [LIBRARIES <targets>...] [PROCESSES]): a QtTest program from <name>.cpp, run by ctest
# without a display. PROCESSES: it starts programs of the tree, which an emulator does not support.
function(qif_add_test name)
    cmake_parse_arguments(arg "PROCESSES" "" "LIBRARIES" ${ARGN})
    qif_add_executable(${name} ${name}.cpp)
    target_link_libraries(${name} PRIVATE Qt5::Test ${arg_LIBRARIES})
    if(CMAKE_CROSSCOMPILING AND arg_PROCESSES)
        set(message "skipped under the emulator, which can't start processes")
        add_test(NAME ${name} COMMAND ${CMAKE_COMMAND} -E echo ${message})
        set_tests_properties(${name} PROPERTIES SKIP_REGULAR_EXPRESSION ${message})
    else()
        add_test(NAME ${name} COMMAND ${name})
        qif_set_test_environment(${name})
    endif()
endfunction()

# qif_add_long_run(<test> <variable> <count>): the test once more, as <test>_soak under the label "soak", with
# the variable set to the count unless the environment of ctest sets it.
function(qif_add_long_run name variable count)
    if(NOT CMAKE_CROSSCOMPILING)
        add_test(NAME ${name}_soak
            COMMAND sh -c "${variable}=\${${variable}:-${count}} exec \"$1\"" soak $<TARGET_FILE:${name}>)
        qif_set_test_environment(${name}_soak)
        set_tests_properties(${name}_soak PROPERTIES LABELS soak COST 100 TIMEOUT 36000
            ENVIRONMENT_MODIFICATION QTEST_FUNCTION_TIMEOUT=set:36000000)
    endif()
endfunction()
