# Floating-point rules for every target of the project, tests and benchmarks
# included: IEEE doubles with no contraction into fused multiply-adds, so that
# results are the same at every optimisation level and on every platform.
# Nothing that relaxes IEEE semantics is ever added.
add_compile_options(-ffp-contract=off -Wall -Wextra)

# 32-bit x86 would otherwise evaluate in x87 extended precision. (Emscripten
# calls its target processor "x86", but WebAssembly's doubles are plain IEEE.)
if(CMAKE_SIZEOF_VOID_P EQUAL 4 AND NOT EMSCRIPTEN AND
   CMAKE_SYSTEM_PROCESSOR MATCHES "^(i.86|x86|X86|AMD64|x86_64)$")
    add_compile_options(-msse2 -mfpmath=sse)
endif()
