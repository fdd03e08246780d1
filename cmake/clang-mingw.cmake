# A second compiler for the Windows programs: Clang, with the headers and libraries of mingw-w64 and
# GCC's C++ library. What only one of the compilers takes fails with the other.
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER_TARGET ${GATEWAY_TARGET})
set(CMAKE_C_COMPILER_TARGET ${GATEWAY_TARGET})
include(${CMAKE_CURRENT_LIST_DIR}/clang-tree.cmake)
set(CMAKE_SYSROOT ${GATEWAY_CLANG_TREE})
set(CMAKE_CXX_FLAGS_INIT "${GATEWAY_CLANG_DEFINITIONS}")
# The linker that belongs to Clang; GNU's one notices that the two compilers lay out the same
# constants differently.
set(CMAKE_EXE_LINKER_FLAGS_INIT -fuse-ld=lld)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -fuse-ld=lld)
