cmake_policy(VERSION 3.25)
# Compares the export tables of QELMath.dll and QELMemory.dll with what they
# must hold, and their import tables with what they may use.
#   OBJDUMP: the target's objdump; DLL, MEMORY_DLL: the two DLLs;
#   EXPECTED: the import library's definition, listing the MSVC names.

# Names in the export table of a PE image, from `objdump -p`.
function(pe_exports image out_names out_imports)
    execute_process(COMMAND ${OBJDUMP} -p ${image} OUTPUT_VARIABLE dump RESULT_VARIABLE rc)
    if(NOT rc EQUAL 0)
        message(FATAL_ERROR "objdump failed on ${image}")
    endif()
    # The table is the run of "\t[ n] name" lines after its heading.
    string(REGEX MATCH "\\[Ordinal/Name Pointer\\] Table[^\n]*\n(\t\\[[^\n]*\n)*" table "${dump}")
    string(REGEX MATCHALL "\t\\[ *[0-9]+\\] [^\n]+" entries "${table}")
    set(names)
    foreach(e IN LISTS entries)
        string(REGEX REPLACE "^\t\\[ *[0-9]+\\] " "" name "${e}")
        list(APPEND names "${name}")
    endforeach()
    string(REGEX MATCHALL "DLL Name: [^\n]+" dlls "${dump}")
    list(TRANSFORM dlls REPLACE "^DLL Name: " "")
    set(${out_names} "${names}" PARENT_SCOPE)
    set(${out_imports} "${dlls}" PARENT_SCOPE)
endfunction()

set(failures)

# The runtime must be linked in: only system DLLs (and QELMemory) may be
# imported.
function(check_imports image dlls allowed_extra)
    foreach(d IN LISTS dlls)
        string(TOLOWER "${d}" lower)
        if(lower MATCHES "^(kernel32|msvcrt|ucrtbase|user32|advapi32|ntdll)\\.dll$"
           OR lower MATCHES "^api-ms-win-"
           OR lower STREQUAL "${allowed_extra}")
            continue()
        endif()
        list(APPEND failures "${image} imports ${d}")
    endforeach()
    set(failures "${failures}" PARENT_SCOPE)
endfunction()

# --- expected names: the MSVC names of the header's functions, as paired
# by the build (one line a name after EXPORTS)
file(STRINGS ${EXPECTED} lines)
set(expected)
foreach(l IN LISTS lines)
    string(STRIP "${l}" l)
    if(NOT l MATCHES "^(LIBRARY|EXPORTS)")
        list(APPEND expected "${l}")
    endif()
endforeach()
list(LENGTH expected n_expected)

# --- QELMath.dll
pe_exports(${DLL} exported imports)
set(missing ${expected})
set(extra)
foreach(name IN LISTS exported)
    if(name IN_LIST expected)
        list(REMOVE_ITEM missing "${name}")
    elseif(name STREQUAL "DllMain")
        set(has_dllmain ON)
    else()
        list(APPEND extra "${name}")
    endif()
endforeach()
if(extra)
    string(REPLACE ";" "\n  " t "${extra}")
    list(APPEND failures "QELMath.dll exports names the header does not declare:\n  ${t}")
endif()
if(NOT has_dllmain)
    list(APPEND failures "QELMath.dll does not export DllMain")
endif()
get_filename_component(memory_name ${MEMORY_DLL} NAME)
string(TOLOWER "${memory_name}" memory_lower)
check_imports(QELMath.dll "${imports}" "${memory_lower}")

# --- QELMemory.dll
pe_exports(${MEMORY_DLL} mem_exported mem_imports)
list(SORT mem_exported)
if(NOT mem_exported STREQUAL "mem_free;mem_malloc")
    list(APPEND failures "QELMemory.dll exports '${mem_exported}', not exactly mem_free and mem_malloc")
endif()
check_imports(QELMemory.dll "${mem_imports}" "")

if(failures)
    string(REPLACE ";" "\n" t "${failures}")
    message(FATAL_ERROR "${t}")
endif()

if(missing)
    string(REPLACE ";" "\n  " t "${missing}")
    message(FATAL_ERROR "QELMath.dll does not export:\n  ${t}")
endif()
message(STATUS "QELMath.dll exports exactly the ${n_expected} declared functions and DllMain; "
               "QELMemory.dll exactly mem_malloc and mem_free; imports: ${imports}")
