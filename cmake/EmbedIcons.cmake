# As a script (cmake -DFOLDER=... -DOUTPUT=... -P): writes OUTPUT, the pictures of FOLDER as a table of C++ strings.
# Included: nalt_embed_icons(<target>) adds that table to a target and keeps it up to date.
if(CMAKE_SCRIPT_MODE_FILE)
  file(GLOB pictures ${FOLDER}/*.svg)
  list(SORT pictures)
  set(rows "")
  foreach(picture ${pictures})
    get_filename_component(name ${picture} NAME_WE)
    file(READ ${picture} text)
    string(APPEND rows "    {\"${name}\", R\"svg(${text})svg\"},\n")
  endforeach()
  file(WRITE ${OUTPUT}
    "#include \"core/drawing/IconTable.h\"\n\n"
    "namespace nalt {\n\n"
    "namespace {\nconst IconSource sources[] = {\n${rows}};\n}\n\n"
    "std::span<const IconSource> iconTable()\n{\n  return sources;\n}\n\n"
    "} // namespace nalt\n")
  return()
endif()

set(NALT_EMBED_ICONS ${CMAKE_CURRENT_LIST_FILE})
function(nalt_embed_icons target)
  set(folder ${CMAKE_SOURCE_DIR}/data/icons)
  set(output ${CMAKE_BINARY_DIR}/generated/IconTable.cpp)
  file(GLOB pictures CONFIGURE_DEPENDS ${folder}/*.svg)
  add_custom_command(OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -DFOLDER=${folder} -DOUTPUT=${output} -P ${NALT_EMBED_ICONS}
    DEPENDS ${pictures} ${NALT_EMBED_ICONS}
    COMMENT "Embedding the icons" VERBATIM)
  target_sources(${target} PRIVATE ${output})
endfunction()
