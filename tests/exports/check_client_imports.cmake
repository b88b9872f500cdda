cmake_policy(VERSION 3.25)
# The MSVC-ABI client imports every function of the API: its imports from
# QELMath.dll must be exactly the DLL's exports but DllMain.
#   OBJDUMP; DLL: QELMath.dll; CLIENT: the client program.
execute_process(COMMAND ${OBJDUMP} -p ${DLL} OUTPUT_VARIABLE dump RESULT_VARIABLE rc1)
string(REGEX MATCH "\\[Ordinal/Name Pointer\\] Table[^\n]*\n(\t\\[[^\n]*\n)*" table "${dump}")
string(REGEX MATCHALL "\t\\[ *[0-9]+\\] [^\n]+" entries "${table}")
list(TRANSFORM entries REPLACE "^\t\\[ *[0-9]+\\] " "")
list(REMOVE_ITEM entries DllMain)
list(SORT entries)

execute_process(COMMAND ${OBJDUMP} -p ${CLIENT} OUTPUT_VARIABLE dump RESULT_VARIABLE rc2)
if(NOT rc1 EQUAL 0 OR NOT rc2 EQUAL 0)
    message(FATAL_ERROR "objdump failed")
endif()
# The client's import directory entry for QELMath.dll: "hint name" lines.
string(REGEX MATCH "DLL Name: QELMath.dll\n[^\n]*\n([^\n]+\n)*" block "${dump}")
string(REGEX MATCHALL "\n\t[0-9a-f]+\t +[0-9]+  [^\n]+" rows "${block}")
list(TRANSFORM rows REPLACE "^\n\t[0-9a-f]+\t +[0-9]+  " "")
list(SORT rows)
list(LENGTH entries n)
if(NOT rows STREQUAL entries)
    string(REPLACE ";" "\n  " a "${entries}")
    string(REPLACE ";" "\n  " b "${rows}")
    message(FATAL_ERROR "exports:\n  ${a}\nclient imports:\n  ${b}")
endif()
message(STATUS "the client imports exactly the ${n} exported functions")
