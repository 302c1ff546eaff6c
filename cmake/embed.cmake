# kvx_embed(target file.cpp symbol folder): makes file.cpp, which holds every file below `folder` as
# `const embedded::File symbol[]`, ended by an entry without a name, and adds it to `target`.
function(kvx_embed target output symbol folder)
  file(GLOB_RECURSE inputs CONFIGURE_DEPENDS ${folder}/*)
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -DFOLDER=${folder} -DOUTPUT=${output} -DSYMBOL=${symbol}
            -P ${PROJECT_SOURCE_DIR}/cmake/embed_files.cmake
    DEPENDS ${inputs} ${PROJECT_SOURCE_DIR}/cmake/embed_files.cmake
    VERBATIM)
  target_sources(${target} PRIVATE ${output})
endfunction()
