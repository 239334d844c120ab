# Fails when the library's export list names data: the program loads the library on first use (delay
# loading), which can bind functions only.
#   cmake -DDEF_FILE=<path of heron64.def> -P check_exports.cmake
file(STRINGS ${DEF_FILE} lines)
set(functions 0)
foreach(line IN LISTS lines)
    if(line MATCHES "[ \t]DATA([ \t]|$)")
        message(FATAL_ERROR "data export in ${DEF_FILE}: ${line}")
    endif()
    if(line MATCHES "_CONNECTIONLIST|_CONNECTIONOBJECT")
        math(EXPR functions "${functions} + 1")
    endif()
endforeach()
if(functions EQUAL 0)
    message(FATAL_ERROR "no endpoint list methods exported in ${DEF_FILE}")
endif()
message(STATUS "${functions} method exports, no data")
