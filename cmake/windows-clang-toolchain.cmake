# Compiles the Windows program with clang, over the headers of mingw-w64: a second opinion on the sources. Nothing is
# linked with it.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

find_program(KVX_CLANG NAMES clang++ REQUIRED)
find_program(KVX_MINGW NAMES x86_64-w64-mingw32-g++-posix REQUIRED)
execute_process(COMMAND ${KVX_MINGW} -print-libgcc-file-name
                OUTPUT_VARIABLE libgcc OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
cmake_path(GET libgcc PARENT_PATH gcc)

set(CMAKE_CXX_COMPILER ${KVX_CLANG})
set(CMAKE_CXX_COMPILER_TARGET x86_64-w64-windows-gnu)
set(CMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES
  ${gcc}/include/c++ ${gcc}/include/c++/x86_64-w64-mingw32 ${gcc}/include/c++/backward)
set(CMAKE_CXX_FLAGS_INIT -nostdinc++)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
