# Every warning is an error, for all compilers alike. Link to kvx_warnings to get them.
add_library(kvx_warnings INTERFACE)
if(MSVC)
  # C4459: a local that holds a function's answer may bear the function's name. That none hides a variable, the
  # other compilers see to.
  target_compile_options(kvx_warnings INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:/W4> $<$<COMPILE_LANGUAGE:CXX>:/WX> $<$<COMPILE_LANGUAGE:CXX>:/permissive->
    $<$<COMPILE_LANGUAGE:CXX>:/utf-8> $<$<COMPILE_LANGUAGE:CXX>:/Zc:__cplusplus>
    $<$<COMPILE_LANGUAGE:CXX>:/wd4459>)
else()
  target_compile_options(kvx_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Werror
    -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wcast-qual -Wformat=2
    -Wnon-virtual-dtor -Woverloaded-virtual -Wnull-dereference -Wextra-semi -Wundef)
endif()
if(KVX_EVERY_WARNING)
  # All that clang knows, but for what contradicts the language (C++20), the style (objects that live as long as
  # the program; a `default` for the other enumerators; interfaces without a source file) or the product's names.
  target_compile_options(kvx_warnings INTERFACE
    -Weverything -Wno-unknown-warning-option
    -Wno-c++98-compat -Wno-c++98-compat-pedantic -Wno-pre-c++20-compat-pedantic -Wno-c++20-compat
    -Wno-exit-time-destructors -Wno-global-constructors -Wno-switch-enum -Wno-switch-default
    -Wno-weak-vtables -Wno-padded -Wno-reserved-identifier -Wno-ctad-maybe-unsupported
    -Wno-unsafe-buffer-usage)
endif()
