# Shared by the MinGW-w64 toolchain files; QELMATH_MINGW_TRIPLE names the
# target. The posix compilers are the ones with std::thread and friends.
find_program(CMAKE_CXX_COMPILER NAMES ${QELMATH_MINGW_TRIPLE}-g++-posix ${QELMATH_MINGW_TRIPLE}-g++)
find_program(CMAKE_C_COMPILER NAMES ${QELMATH_MINGW_TRIPLE}-gcc-posix ${QELMATH_MINGW_TRIPLE}-gcc)
find_program(CMAKE_RC_COMPILER NAMES ${QELMATH_MINGW_TRIPLE}-windres)
find_program(QELMATH_OBJDUMP NAMES ${QELMATH_MINGW_TRIPLE}-objdump objdump)

set(CMAKE_FIND_ROOT_PATH /usr/${QELMATH_MINGW_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Test-only dependencies of the host (MPFR, CGAL, the host's GoogleTest)
# are not there for this target; test folders look at this to skip them.
set(QELMATH_CROSS ON CACHE BOOL "Cross build: host-only test dependencies are unavailable")
