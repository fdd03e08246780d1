# Uses ccache where it is installed. `-D GATEWAY_CACHE=` (empty) builds without it; whoever names a
# launcher of their own gets that one.
find_program(GATEWAY_CACHE ccache DOC "Compiler cache")
if(GATEWAY_CACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Precompiled headers are looked up in the cache only if it may trust what names them.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
    CCACHE_SLOPPINESS=pch_defines,time_macros ${GATEWAY_CACHE})
  # Otherwise a header precompiled again differs from the one before by its time.
  add_compile_options("$<$<CXX_COMPILER_ID:Clang>:SHELL:-Xclang -fno-pch-timestamp>")
endif()
