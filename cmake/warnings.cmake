# Warnings are errors, with every compiler.
add_library(gateway_warnings INTERFACE)
if(MSVC)
  target_compile_options(gateway_warnings INTERFACE /W4 /WX)
else()
  target_compile_options(gateway_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor
    -Wold-style-cast -Woverloaded-virtual -Werror)
endif()
