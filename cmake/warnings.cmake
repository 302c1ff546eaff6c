# Every warning is an error, for all compilers alike. Link to kvx_warnings to get them.
add_library(kvx_warnings INTERFACE)
if(MSVC)
  target_compile_options(kvx_warnings INTERFACE /W4 /WX /permissive- /utf-8 /Zc:__cplusplus)
else()
  target_compile_options(kvx_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Werror
    -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wcast-qual -Wformat=2
    -Wnon-virtual-dtor -Woverloaded-virtual -Wnull-dereference -Wextra-semi -Wundef)
endif()
