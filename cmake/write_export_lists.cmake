cmake_policy(VERSION 3.25)
# Pairs every API function's MSVC name with its GNU name and writes the
# export list of QELMath.dll and the definitions of its import libraries.
#   OBJDUMP; GNU_OBJ, MSVC_OBJ: the API table compiled for each ABI;
#   OUT_DIR: where the lists go; X86: 1 for 32-bit x86.

# The relocated symbols of the table, in table order.
function(table_symbols obj out)
    execute_process(COMMAND ${OBJDUMP} -r -j .rdata ${obj} OUTPUT_VARIABLE dump RESULT_VARIABLE rc)
    if(NOT rc EQUAL 0)
        message(FATAL_ERROR "objdump -r failed on ${obj}")
    endif()
    string(REGEX MATCHALL "\n[0-9a-f]+ +[^ \n]+ +[^\n]+" lines "${dump}")
    set(names)
    foreach(l IN LISTS lines)
        string(REGEX REPLACE "^\n[0-9a-f]+ +[^ \n]+ +" "" name "${l}")
        list(APPEND names "${name}")
    endforeach()
    set(${out} "${names}" PARENT_SCOPE)
endfunction()

table_symbols(${GNU_OBJ} gnu)
table_symbols(${MSVC_OBJ} msvc)
list(LENGTH gnu n_gnu)
list(LENGTH msvc n_msvc)
if(NOT n_gnu EQUAL n_msvc OR n_gnu EQUAL 0)
    message(FATAL_ERROR "API table: ${n_gnu} GNU names against ${n_msvc} MSVC names")
endif()

# The DLL's own list: DllMain (stdcall on x86, exported undecorated) and
# each function under its MSVC name. In .def files the linker and dlltool
# add x86's leading underscore to internal names themselves.
if(X86)
    set(def "EXPORTS\n    DllMain = DllMain@12\n")
else()
    set(def "EXPORTS\n    DllMain\n")
endif()
set(msvc_def "LIBRARY QELMath.dll\nEXPORTS\n")
set(mingw_def "LIBRARY QELMath.dll\nEXPORTS\n")
math(EXPR last "${n_gnu} - 1")
foreach(i RANGE ${last})
    list(GET gnu ${i} g)
    list(GET msvc ${i} m)
    if(X86)
        string(SUBSTRING "${g}" 1 -1 g)
    endif()
    string(APPEND def "    \"${m}\" = ${g}\n")
    string(APPEND msvc_def "    ${m}\n")
    string(APPEND mingw_def "    ${g} == \"${m}\"\n")
endforeach()
file(WRITE ${OUT_DIR}/QELMath.def "${def}")
file(WRITE ${OUT_DIR}/QELMath-msvc.def "${msvc_def}")
file(WRITE ${OUT_DIR}/QELMath-mingw.def "${mingw_def}")
file(WRITE ${OUT_DIR}/QELMemory-msvc.def "LIBRARY QELMemory.dll\nEXPORTS\n    mem_malloc\n    mem_free\n")
