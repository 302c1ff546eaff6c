# The shipped program: one static file, with the compiler's own guards.
add_library(kvx_hardening INTERFACE)
if(NOT MSVC AND NOT KVX_SANITIZE)
  target_compile_options(kvx_hardening INTERFACE -fstack-protector-strong)
  target_link_options(kvx_hardening INTERFACE -fstack-protector-strong)
  target_compile_definitions(kvx_hardening INTERFACE $<$<NOT:$<CONFIG:Debug>>:_FORTIFY_SOURCE=2>)
endif()
if(WIN32 AND NOT MSVC)
  target_compile_definitions(kvx_hardening INTERFACE UNICODE _UNICODE _WIN32_WINNT=0x0603 WINVER=0x0603)
  target_compile_options(kvx_hardening INTERFACE -ffunction-sections -fdata-sections)
  target_link_options(kvx_hardening INTERFACE -static -municode -Wl,--gc-sections
    -Wl,--high-entropy-va -Wl,--dynamicbase -Wl,--nxcompat $<$<NOT:$<CONFIG:Debug>>:-s>)
endif()
