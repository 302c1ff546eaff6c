# The shipped program: one static file, with the compiler's own guards, the same bytes wherever it is built.
add_library(kvx_hardening INTERFACE)
if(NOT MSVC AND NOT KVX_SANITIZE)
  target_compile_options(kvx_hardening INTERFACE -fstack-protector-strong)
  target_link_options(kvx_hardening INTERFACE -fstack-protector-strong)
  target_compile_definitions(kvx_hardening INTERFACE $<$<NOT:$<CONFIG:Debug>>:_FORTIFY_SOURCE=2>)
endif()
if(NOT MSVC AND NOT KVX_COVERAGE)
  # Coverage must find the sources; nobody else needs to know where they were.
  target_compile_options(kvx_hardening INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>
    $<$<COMPILE_LANGUAGE:CXX>:-ffile-prefix-map=${PROJECT_BINARY_DIR}=.>)
endif()
if(WIN32)
  target_compile_definitions(kvx_hardening INTERFACE UNICODE _UNICODE _WIN32_WINNT=0x0603 WINVER=0x0603)
endif()
if(WIN32 AND NOT MSVC)
  target_compile_options(kvx_hardening INTERFACE -ffunction-sections -fdata-sections)
  target_link_options(kvx_hardening INTERFACE -static -municode -Wl,--gc-sections -Wl,--no-insert-timestamp
    -Wl,--high-entropy-va -Wl,--dynamicbase -Wl,--nxcompat -Wl,--tsaware $<$<NOT:$<CONFIG:Debug>>:-s>)
endif()
if(MSVC)
  # CMAKE_MSVC_RUNTIME_LIBRARY, in the main file, makes it static. The manifest is in the resources.
  target_compile_options(kvx_hardening INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:/GS> $<$<COMPILE_LANGUAGE:CXX>:/guard:cf> $<$<COMPILE_LANGUAGE:CXX>:/Gy>)
  # 0x800: what is imported comes from the system's own folder.
  target_link_options(kvx_hardening INTERFACE /SUBSYSTEM:CONSOLE /MANIFEST:NO /GUARD:CF /CETCOMPAT /DYNAMICBASE
    /HIGHENTROPYVA /NXCOMPAT /DEPENDENTLOADFLAG:0x800 /Brepro /INCREMENTAL:NO)
endif()
