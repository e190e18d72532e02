# One function per kind of target; a target is one line where it is used.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(VLT_PLUGIN_DIR ${PROJECT_BINARY_DIR}/bin/plugins)

# Compiler flags, definitions and Qt's generators for every target of ours.
function(vlt_common target)
    set_target_properties(${target} PROPERTIES AUTOMOC ON AUTOUIC ON AUTORCC ON)
    target_compile_definitions(${target} PRIVATE
        QT_NO_CAST_FROM_ASCII QT_NO_FOREACH QT_DEPRECATED_WARNINGS)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic)
    if(VLT_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
endfunction()

# Every symbol of a library is found when it is linked. The sanitizers of clang leave theirs to the
# program.
function(vlt_no_undefined target)
    if(NOT VLT_FUZZ)
        target_link_options(${target} PRIVATE -Wl,--no-undefined)
    endif()
endfunction()

# The target `host_contract`: headers and library that the plug-in is built against.
function(vlt_define_host_contract)
    add_library(host_contract INTERFACE)
    if(VLT_HOST_LIBRARY)
        target_include_directories(host_contract INTERFACE ${VLT_HOST_INCLUDE_DIR})
        target_link_libraries(host_contract INTERFACE ${VLT_HOST_LIBRARY})
    else()
        target_include_directories(host_contract INTERFACE ${PROJECT_SOURCE_DIR}/sdk)
        target_link_libraries(host_contract INTERFACE designhost)
    endif()
    target_link_libraries(host_contract INTERFACE Qt5::Widgets)
endfunction()

# A library in the plug-in folder, found there at run time.
function(vlt_add_plugin name)
    add_library(${name} SHARED ${ARGN})
    vlt_common(${name})
    set_target_properties(${name} PROPERTIES
        LIBRARY_OUTPUT_DIRECTORY ${VLT_PLUGIN_DIR}
        BUILD_RPATH_USE_ORIGIN ON)
    vlt_no_undefined(${name})
endfunction()

# A test program made of <name>.cpp, run offscreen by ctest.
function(vlt_add_test name)
    add_executable(${name} ${name}.cpp ${ARGN})
    vlt_common(${name})
    target_link_libraries(${name} PRIVATE test_support vltsetting_objects vlt_config)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        TIMEOUT 300
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
endfunction()
