# Fails when the shared library LIB imports any trigonometric function of the
# runtime (sin, cos, tan, their float/long double and sincos variants, the arc
# functions, atan2), read from `nm -D --undefined-only`.
execute_process(COMMAND ${NM} -D --undefined-only ${LIB}
                OUTPUT_VARIABLE imports RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
    message(FATAL_ERROR "nm failed on ${LIB}")
endif()
string(REPLACE "\n" ";" lines "${imports}")
set(found)
foreach(line IN LISTS lines)
    string(REGEX REPLACE "^.* U " "" name "${line}")
    string(REGEX REPLACE "@.*$" "" name "${name}")
    string(STRIP "${name}" name)
    if(name MATCHES "^(__)?(sin|cos|tan|sincos|asin|acos|atan|atan2)(f|l|f32|f64|f128|f32x|f64x)?(_finite)?$")
        list(APPEND found ${name})
    endif()
endforeach()
if(found)
    message(FATAL_ERROR "${LIB} imports runtime trigonometry: ${found}")
endif()
message(STATUS "no runtime trigonometric imports in ${LIB}")
