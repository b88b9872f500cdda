# WebAssembly with Debian's emscripten (em++). The platform has no shared
# libraries: QELMath and QELMemory are built as static libraries, and the
# ES module of wasm/ links them in. Programs run under node, which
# Emscripten's platform file picks as the emulator.
include(/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake)

# em++ runs its JavaScript optimiser under node, which needs Debian's acorn
# from /usr/share/nodejs: Debian's own node looks there, other builds of node
# need NODE_PATH=/usr/share/nodejs (the wasm preset sets it).
set(CMAKE_EXE_LINKER_FLAGS_INIT "-sALLOW_MEMORY_GROWTH=1")

# The host's test dependencies (GoogleTest libraries, MPFR, CGAL) are x86-64;
# GoogleTest is built from its sources without threads.
set(QELMATH_CROSS ON CACHE BOOL "Cross build: host-only test dependencies are unavailable")
