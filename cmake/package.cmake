# kvx_package: the ZIP that administrators get, build/.../kvxinfo-VERSION-x64.zip, by mingw-w64 alone: its linker
# tells what became part of the program.
find_program(KVX_PYTHON NAMES python3 python)
if(NOT WIN32 OR NOT CMAKE_CXX_COMPILER_ID STREQUAL GNU OR NOT KVX_PYTHON)
  message(STATUS "kvx_package is left out: it takes a build for Windows by mingw-w64, and Python")
  return()
endif()

set(package ${PROJECT_BINARY_DIR}/kvxinfo-${PROJECT_VERSION}-x64.zip)
set(map ${PROJECT_BINARY_DIR}/kvxinfo.map)
set(tools ${PROJECT_SOURCE_DIR}/tools/package)
set(documents ${tools}/README.txt ${tools}/THIRD-PARTY.txt
  ${PROJECT_SOURCE_DIR}/docs/reports.md ${PROJECT_SOURCE_DIR}/docs/quota-file.md)

target_link_options(kvxinfo PRIVATE -Wl,-Map,${map})
add_custom_command(
  OUTPUT ${package}
  COMMAND ${KVX_PYTHON} ${tools}/make.py --version ${PROJECT_VERSION} --released ${KVX_RELEASED}
          --compiler ${CMAKE_CXX_COMPILER} --map ${map} --output ${package} $<TARGET_FILE:kvxinfo> ${documents}
  DEPENDS kvxinfo ${documents} ${tools}/make.py ${tools}/archive.py ${tools}/components.py ${tools}/notices.py
          ${tools}/sbom.py
  VERBATIM)
add_custom_target(kvx_package ALL DEPENDS ${package})
