# cmake -D SOURCE_DIR= -D HOST_LIBRARY= -D WORK_DIR= -P otherhost.cmake
# Builds the plug-in as somebody with a host of their own does: against headers and a library that
# lie elsewhere, named by the two cache variables. The build folder is kept for the next time.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output
        ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGN}\n${output}")
    endif()
endfunction()

get_filename_component(library ${HOST_LIBRARY} NAME)
file(COPY ${SOURCE_DIR}/sdk/ DESTINATION ${WORK_DIR}/environment/include)
file(COPY ${HOST_LIBRARY} DESTINATION ${WORK_DIR}/environment/lib)
file(REMOVE_RECURSE ${WORK_DIR}/build/bin)

run(${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${WORK_DIR}/build -G Ninja
    -D VLT_HOST_INCLUDE_DIR=${WORK_DIR}/environment/include
    -D VLT_HOST_LIBRARY=${WORK_DIR}/environment/lib/${library})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)

file(GLOB_RECURSE built RELATIVE ${WORK_DIR}/build/bin ${WORK_DIR}/build/bin/*)
if(NOT built STREQUAL "plugins/libvltsetting.so")
    message(FATAL_ERROR "built instead of the plug-in alone: ${built}")
endif()
run(${SOURCE_DIR}/tests/contract/check_imports ${SOURCE_DIR}/tests/contract/host_operations.txt
    ${WORK_DIR}/build/bin/plugins/libvltsetting.so ${WORK_DIR}/environment/lib/${library})
