# Cross build for 32-bit Windows with MinGW-w64 (posix threading model).
# 32-bit Windows programs cannot run here, so no emulator is set: the build
# is checked by its export table, and its tests are built but not run.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR X86)
set(QELMATH_MINGW_TRIPLE i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
