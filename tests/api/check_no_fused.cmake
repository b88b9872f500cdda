cmake_policy(VERSION 3.25)
# Fails when the shared library holds a fused multiply-add instruction: one
# rounding where the library's arithmetic promises two. AArch64 compilers
# fuse a*b + c by default unless contraction is turned off.
execute_process(COMMAND ${OBJDUMP} -d ${LIB} OUTPUT_VARIABLE out RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
    message(FATAL_ERROR "objdump failed on ${LIB}")
endif()
string(REGEX MATCHALL "[\t ](fmla|fmls|fmadd|fmsub|fnmadd|fnmsub|fnmla|fnmls)[\t ][^\n]*" fused "${out}")
list(LENGTH fused count)
if(count GREATER 0)
    list(SUBLIST fused 0 5 first)
    string(REPLACE ";" "\n" first "${first}")
    message(FATAL_ERROR "${count} fused multiply-add instructions in ${LIB}, the first:\n${first}")
endif()
