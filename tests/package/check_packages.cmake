# cmake -DSETUP=... -DPORTABLE_ZIP=... -DDEBUG_ZIP=... -P check_packages.cmake
# The portable zip holds exactly the five binaries and the read-me, without folders and without debug
# files; the debug archive holds exactly the five debug files; Setup's manifest asks for administrative
# rights (Wine runs everything as an administrator, so only the manifest can show it).
function(expect_members archive)
    execute_process(COMMAND ${CMAKE_COMMAND} -E tar tf ${archive}
                    OUTPUT_VARIABLE listing RESULT_VARIABLE result ERROR_VARIABLE errors)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "cannot list ${archive}: ${errors}")
    endif()
    string(REGEX REPLACE "\n$" "" listing "${listing}")
    string(REPLACE "\n" ";" members "${listing}")
    list(SORT members)
    set(expected ${ARGN})
    list(SORT expected)
    if(NOT members STREQUAL expected)
        message(FATAL_ERROR "${archive}\n  holds:    ${members}\n  expected: ${expected}")
    endif()
    message(STATUS "${archive}: ${members}")
endfunction()

expect_members(${PORTABLE_ZIP} finch64.dll heron64.dll kestrel64.dll lmvx64.exe readme.txt wren64.dll)
expect_members(${DEBUG_ZIP} finch64.dll.debug heron64.dll.debug kestrel64.dll.debug lmvx64.exe.debug wren64.dll.debug)

file(STRINGS ${SETUP} administrator_request REGEX "requireAdministrator")
if(NOT administrator_request)
    message(FATAL_ERROR "${SETUP} does not ask for administrative rights")
endif()
