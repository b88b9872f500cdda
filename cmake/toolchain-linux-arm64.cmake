# 64-bit ARM Linux (AArch64) built with Debian's clang for the aarch64 target
# against Debian's arm64 cross libraries (libc6-dev-arm64-cross,
# libstdc++-12-dev-arm64-cross, binutils-aarch64-linux-gnu). Debian's
# g++-aarch64-linux-gnu cannot be installed next to g++-multilib, which the
# 32-bit x86 build needs, so clang stands in for the GCC cross compiler; it
# finds the cross GCC's runtime files and the triple-prefixed linker itself.
# Programs run under qemu-aarch64 with the cross libraries as their root.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(QELMATH_ARM64_TRIPLE aarch64-linux-gnu)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER_TARGET ${QELMATH_ARM64_TRIPLE})
set(CMAKE_C_COMPILER_TARGET ${QELMATH_ARM64_TRIPLE})
set(CMAKE_LIBRARY_ARCHITECTURE ${QELMATH_ARM64_TRIPLE})
set(CMAKE_FIND_ROOT_PATH /usr/${QELMATH_ARM64_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

find_program(QELMATH_QEMU_AARCH64 NAMES qemu-aarch64 qemu-aarch64-static)
if(QELMATH_QEMU_AARCH64)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${QELMATH_QEMU_AARCH64} -L /usr/${QELMATH_ARM64_TRIPLE})
endif()

# The host's test dependencies (GoogleTest libraries, MPFR, CGAL) are x86-64.
set(QELMATH_CROSS ON CACHE BOOL "Cross build: host-only test dependencies are unavailable")
