cmake_policy(VERSION 3.25)
# Installs the build into a scratch prefix, then configures, builds and runs
# the consumer project against that prefix only.
#   BUILD_DIR, CONFIG, SOURCE_DIR, WORK_DIR, GENERATOR, CXX, CXX_FLAGS,
#   LINKER_FLAGS, PKG_CONFIG
set(prefix ${WORK_DIR}/prefix)
file(REMOVE_RECURSE ${WORK_DIR})

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
    if(NOT rc EQUAL 0)
        string(REPLACE ";" " " cmd "${ARGN}")
        message(FATAL_ERROR "failed (${rc}): ${cmd}\n${out}")
    endif()
    message("${out}")
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix} --config ${CONFIG})

# What the README tells a user to set for pkg-config, and nothing else: the
# system's own search folders are replaced by an empty one, so that only the
# scratch prefix can satisfy the search.
set(pcdir "")
foreach(libdir lib lib64 lib/x86_64-linux-gnu lib/i386-linux-gnu)
    if(EXISTS ${prefix}/${libdir}/pkgconfig)
        set(pcdir ${prefix}/${libdir}/pkgconfig)
    endif()
endforeach()
set(ENV{PKG_CONFIG_PATH} "${pcdir}")
set(ENV{PKG_CONFIG_LIBDIR} "${WORK_DIR}/no-system-pkgconfig")
run(${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${WORK_DIR}/build -G ${GENERATOR}
    -DCMAKE_BUILD_TYPE=${CONFIG} -DCMAKE_CXX_COMPILER=${CXX}
    "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}" "-DCMAKE_EXE_LINKER_FLAGS=${LINKER_FLAGS}"
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF
    -DPKG_CONFIG_EXECUTABLE=${PKG_CONFIG})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)

# No library path: the programs find libQELMath by their run path, and
# libQELMath finds libQELMemory beside it.
unset(ENV{LD_LIBRARY_PATH})
foreach(program consumer_cmake consumer_pkgconfig)
    run(${WORK_DIR}/build/${program})
endforeach()
