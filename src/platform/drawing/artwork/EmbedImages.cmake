# Pictures are drawn once, as SVG, and carried by the program as PNG in the sizes that screens ask for.

find_program(RSVG_CONVERT rsvg-convert REQUIRED)
set(ODOLEDGER_EMBED_SCRIPT ${CMAKE_CURRENT_LIST_DIR}/write_image_table.cmake)

# odoledger_embed_images(TARGET HEADER header FUNCTION name [NAMESPACE name] PICTURES id=name=width,width[=letter]...)
# Adds to TARGET a source that defines FUNCTION, declared in HEADER: the table of all PICTURES (name.svg in the current
# folder) at the given widths, with the letter that stands for it where there are only letters.
function(odoledger_embed_images target)
  cmake_parse_arguments(arg "" "HEADER;FUNCTION;NAMESPACE" "PICTURES" ${ARGN})
  set(images)
  set(list)
  foreach(picture IN LISTS arg_PICTURES)
    string(REPLACE "=" ";" fields ${picture}=)
    list(GET fields 0 id)
    list(GET fields 1 name)
    list(GET fields 2 widths)
    string(REPLACE "," ";" widths ${widths})
    list(GET fields 3 letter)
    set(svg ${CMAKE_CURRENT_SOURCE_DIR}/${name}.svg)
    foreach(width IN LISTS widths)
      set(png ${CMAKE_CURRENT_BINARY_DIR}/${name}_${width}.png)
      add_custom_command(OUTPUT ${png}
        COMMAND ${RSVG_CONVERT} --keep-aspect-ratio -w ${width} -o ${png} ${svg}
        DEPENDS ${svg} VERBATIM)
      list(APPEND images ${png})
      string(APPEND list "${id}:${width}:${letter}:${png},")
    endforeach()
  endforeach()
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${arg_FUNCTION}.cpp)
  add_custom_command(OUTPUT ${source}
    COMMAND ${CMAKE_COMMAND} -DIMAGES=${list} -DHEADER=${arg_HEADER} -DFUNCTION=${arg_FUNCTION}
      -DNAMESPACE=${arg_NAMESPACE} -DOUTPUT=${source} -P ${ODOLEDGER_EMBED_SCRIPT}
    DEPENDS ${images} ${ODOLEDGER_EMBED_SCRIPT} VERBATIM)
  target_sources(${target} PRIVATE ${source})
endfunction()
