# Cross build for 64-bit Windows with MinGW-w64 (posix threading model).
# Programs run under wine64 as the cross-compiling emulator, so CTest runs
# the Windows test programs unchanged.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)
set(QELMATH_MINGW_TRIPLE x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)

# Debian installs the 64-bit loader outside the PATH.
find_program(QELMATH_WINE64 NAMES wine64 wine
             PATHS /usr/lib/wine /usr/lib/x86_64-linux-gnu/wine /opt/wine-stable/bin
             NO_CMAKE_FIND_ROOT_PATH)
if(QELMATH_WINE64)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${QELMATH_WINE64})
endif()
