# QELMath.dll exports its functions under the names an MSVC-built program
# looks for (Microsoft's C++ decoration, cdecl, the platform's default), and
# ships two import libraries for that one DLL:
#   QELMath.lib          for MSVC programs (names as exported);
#   libQELMath.dll.a     for MinGW programs: each GNU-mangled name imports
#                        the export of the same function by its MSVC name.
# The decorated names are never written by hand: the header's declarations
# are compiled into a table of function pointers twice, by clang for the
# *-windows-msvc target and by this build's MinGW compiler, and the two
# objects' relocations, in table order, pair each function's two names.
find_program(QELMATH_CLANGXX NAMES clang++ clang++-14 REQUIRED)
find_program(QELMATH_LLVM_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14 REQUIRED)
find_program(QELMATH_DLLTOOL NAMES ${QELMATH_MINGW_TRIPLE}-dlltool REQUIRED)
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(QELMATH_MSVC_TARGET i686-pc-windows-msvc)
    set(QELMATH_DLLTOOL_MACHINE i386)
else()
    set(QELMATH_MSVC_TARGET x86_64-pc-windows-msvc)
    set(QELMATH_DLLTOOL_MACHINE i386:x86-64)
endif()

# One function pointer per declaration, cast to the declared type, so that
# overloads pick the declared one.
file(READ ${PROJECT_SOURCE_DIR}/include/QELMath.h header_text)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/include/QELMath.h)
string(REGEX MATCHALL "\nQELMATH_API [^;\n]*" decls "${header_text}")
set(table "// Generated from include/QELMath.h.\n#include \"QELMath.h\"\nextern \"C\" const void* const qel_api_table[] = {\n")
foreach(d IN LISTS decls)
    string(REGEX REPLACE "^\nQELMATH_API " "" d "${d}")
    string(REGEX MATCH "^(.*[^A-Za-z0-9_])([A-Za-z_][A-Za-z0-9_]*)\\((.*)\\)$" _ "${d}")
    string(APPEND table "    reinterpret_cast<const void*>(static_cast<${CMAKE_MATCH_1}(*)(${CMAKE_MATCH_3})>(&${CMAKE_MATCH_2})),\n")
endforeach()
string(APPEND table "};\n")
set(api_table ${PROJECT_BINARY_DIR}/exports/api_table.cpp)
file(CONFIGURE OUTPUT ${api_table} CONTENT "${table}" @ONLY)

add_library(qelmath_api_table_gnu OBJECT ${api_table})
target_compile_definitions(qelmath_api_table_gnu PRIVATE QELMATH_STATIC)
target_include_directories(qelmath_api_table_gnu PRIVATE ${PROJECT_SOURCE_DIR}/include)

set(exports_dir ${PROJECT_BINARY_DIR}/exports)
set(msvc_obj ${exports_dir}/api_table_msvc.obj)
add_custom_command(OUTPUT ${msvc_obj}
    COMMAND ${QELMATH_CLANGXX} --target=${QELMATH_MSVC_TARGET} -fms-compatibility -nostdinc
            -isystem ${PROJECT_SOURCE_DIR}/cmake/msvc-shim -I ${PROJECT_SOURCE_DIR}/include
            -DQELMATH_STATIC -c ${api_table} -o ${msvc_obj}
    DEPENDS ${api_table} ${PROJECT_SOURCE_DIR}/include/QELMath.h ${PROJECT_SOURCE_DIR}/include/QELMemory.h
    COMMENT "Decorating the API's names for MSVC")

set(QELMATH_DEF ${exports_dir}/QELMath.def)
set(QELMATH_MSVC_DEF ${exports_dir}/QELMath-msvc.def)
set(QELMATH_MINGW_DEF ${exports_dir}/QELMath-mingw.def)
set(QELMEMORY_MSVC_DEF ${exports_dir}/QELMemory-msvc.def)
add_custom_command(OUTPUT ${QELMATH_DEF} ${QELMATH_MSVC_DEF} ${QELMATH_MINGW_DEF} ${QELMEMORY_MSVC_DEF}
    COMMAND ${CMAKE_COMMAND} -DOBJDUMP=${QELMATH_OBJDUMP} "-DGNU_OBJ=$<TARGET_OBJECTS:qelmath_api_table_gnu>"
            -DMSVC_OBJ=${msvc_obj} -DOUT_DIR=${exports_dir} -DX86=$<EQUAL:${CMAKE_SIZEOF_VOID_P},4>
            -P ${PROJECT_SOURCE_DIR}/cmake/write_export_lists.cmake
    DEPENDS ${msvc_obj} qelmath_api_table_gnu $<TARGET_OBJECTS:qelmath_api_table_gnu>
            ${PROJECT_SOURCE_DIR}/cmake/write_export_lists.cmake
    COMMENT "Pairing the API's MSVC and GNU names")
add_custom_target(qelmath_export_lists DEPENDS ${QELMATH_DEF})

add_dependencies(QELMath qelmath_export_lists)
# As a source, the list goes on the link line after the objects, where the
# linker can resolve its internal names.
target_sources(QELMath PRIVATE ${QELMATH_DEF})
# The import libraries replace the one the linker writes (which would hold
# only the MSVC names).
add_custom_command(TARGET QELMath POST_BUILD
    COMMAND ${QELMATH_DLLTOOL} -d ${QELMATH_MINGW_DEF} -l $<TARGET_LINKER_FILE:QELMath>
    COMMAND ${QELMATH_LLVM_DLLTOOL} -m ${QELMATH_DLLTOOL_MACHINE} -d ${QELMATH_MSVC_DEF}
            -l $<TARGET_FILE_DIR:QELMath>/QELMath.lib
    COMMAND ${QELMATH_LLVM_DLLTOOL} -m ${QELMATH_DLLTOOL_MACHINE} -d ${QELMEMORY_MSVC_DEF}
            -l $<TARGET_FILE_DIR:QELMath>/QELMemory.lib
    VERBATIM)
install(FILES $<TARGET_FILE_DIR:QELMath>/QELMath.lib $<TARGET_FILE_DIR:QELMath>/QELMemory.lib
        DESTINATION ${CMAKE_INSTALL_LIBDIR})
