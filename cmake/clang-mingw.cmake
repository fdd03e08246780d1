# A second compiler for the Windows programs: Clang, with the headers and libraries of mingw-w64 and
# GCC's C++ library. What only one of the compilers takes fails with the other.
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER_TARGET ${GATEWAY_TARGET})
set(CMAKE_C_COMPILER_TARGET ${GATEWAY_TARGET})

# Clang looks for GCC's folder by its version number, but Debian adds the thread model to the name.
# So it gets a tree of links with the names that it knows. Without such a tree it would also look
# for headers in the folder of this machine's own system.
execute_process(COMMAND ${GATEWAY_TARGET}-g++ -print-libgcc-file-name
  OUTPUT_VARIABLE gcc_folder OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
get_filename_component(gcc_folder ${gcc_folder} DIRECTORY)
get_filename_component(gcc_version ${gcc_folder} NAME)
string(REGEX REPLACE "-.*" "" gcc_version ${gcc_version})
set(CMAKE_SYSROOT ${CMAKE_BINARY_DIR}/${GATEWAY_TARGET})
file(MAKE_DIRECTORY ${CMAKE_SYSROOT}/lib/gcc/${GATEWAY_TARGET})
file(CREATE_LINK ${gcc_folder} ${CMAKE_SYSROOT}/lib/gcc/${GATEWAY_TARGET}/${gcc_version} SYMBOLIC)
file(CREATE_LINK /usr/${GATEWAY_TARGET} ${CMAKE_SYSROOT}/${GATEWAY_TARGET} SYMBOLIC)

# GCC predefines these, as its C++ library is built.
set(CMAKE_CXX_FLAGS_INIT
  "-D__GXX_TYPEINFO_EQUALITY_INLINE=0 -D__GXX_MERGED_TYPEINFO_NAMES=0")
# The linker that belongs to Clang; GNU's one notices that the two compilers lay out the same
# constants differently.
set(CMAKE_EXE_LINKER_FLAGS_INIT -fuse-ld=lld)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -fuse-ld=lld)
