# The mingw-w64 compilers for the kind of machine that a preset names.
set(GATEWAY_TARGET x86_64-w64-mingw32 CACHE STRING "Prefix of the compilers' names")
# The compilers are tried out in projects of their own, which need it too.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES GATEWAY_TARGET)

set(CMAKE_SYSTEM_NAME Windows)
string(REGEX REPLACE "-.*" "" CMAKE_SYSTEM_PROCESSOR ${GATEWAY_TARGET})
set(CMAKE_CXX_COMPILER ${GATEWAY_TARGET}-g++)
set(CMAKE_C_COMPILER ${GATEWAY_TARGET}-gcc)
set(CMAKE_RC_COMPILER ${GATEWAY_TARGET}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${GATEWAY_TARGET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
