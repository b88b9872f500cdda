# 32-bit x86 Linux build with the host compiler and -m32 (g++-multilib).
# Programs run under qemu-i386: a CI kernel may not run 32-bit programs
# natively, and the emulator runs them either way.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_CXX_COMPILER g++)
set(CMAKE_C_COMPILER gcc)
set(CMAKE_CXX_FLAGS_INIT "-m32")
set(CMAKE_C_FLAGS_INIT "-m32")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-m32")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-m32")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-m32")
set(CMAKE_LIBRARY_ARCHITECTURE i386-linux-gnu)
set(FIND_LIBRARY_USE_LIB32_PATHS ON)
set_property(GLOBAL PROPERTY FIND_LIBRARY_USE_LIB64_PATHS OFF)
set_property(GLOBAL PROPERTY FIND_LIBRARY_USE_LIB32_PATHS ON)

find_program(QELMATH_QEMU_I386 NAMES qemu-i386 qemu-i386-static)
if(QELMATH_QEMU_I386)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${QELMATH_QEMU_I386})
endif()

# The host's 64-bit test dependencies (GoogleTest libraries, MPFR, CGAL)
# cannot link into 32-bit programs; test folders look at this to skip them.
set(QELMATH_CROSS ON CACHE BOOL "Cross build: host-only test dependencies are unavailable")
