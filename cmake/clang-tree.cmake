# Clang looks for GCC's folder by its version number, but Debian adds the thread model to the name.
# So it gets a tree of links with the names that it knows. Without such a tree it would also look
# for headers in the folder of this machine's own system.
set(GATEWAY_CLANG_TREE ${CMAKE_BINARY_DIR}/clang-tree/${GATEWAY_TARGET})
execute_process(COMMAND ${GATEWAY_TARGET}-g++ -print-libgcc-file-name
  OUTPUT_VARIABLE gcc_folder OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
get_filename_component(gcc_folder ${gcc_folder} DIRECTORY)
get_filename_component(gcc_version ${gcc_folder} NAME)
string(REGEX REPLACE "-.*" "" gcc_version ${gcc_version})
file(MAKE_DIRECTORY ${GATEWAY_CLANG_TREE}/lib/gcc/${GATEWAY_TARGET})
file(CREATE_LINK ${gcc_folder} ${GATEWAY_CLANG_TREE}/lib/gcc/${GATEWAY_TARGET}/${gcc_version} SYMBOLIC)
file(CREATE_LINK /usr/${GATEWAY_TARGET} ${GATEWAY_CLANG_TREE}/${GATEWAY_TARGET} SYMBOLIC)

# GCC predefines these, as its C++ library is built.
set(GATEWAY_CLANG_DEFINITIONS
  "-D__GXX_TYPEINFO_EQUALITY_INLINE=0 -D__GXX_MERGED_TYPEINFO_NAMES=0")
