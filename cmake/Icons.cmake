# The program's icon, drawn from its two SVG pictures when the program is built.
set(KEELBRIGHT_ICON_SIZES 16 22 24 32 48 64 128 256 512)
if(APPLE)
  list(APPEND KEELBRIGHT_ICON_SIZES 1024)
endif()
set(KEELBRIGHT_ICONS "${PROJECT_BINARY_DIR}/icons") # SIZE.png each

# Puts the list of the pictures into `result` and lets the calling folder draw them.
#   keelbright_icons(result)
function(keelbright_icons result)
  set(large "${PROJECT_SOURCE_DIR}/packaging/icons/keelbright.svg")
  set(small "${PROJECT_SOURCE_DIR}/packaging/icons/keelbright-small.svg")
  add_executable(render-icons "${PROJECT_SOURCE_DIR}/packaging/icons/RenderIcons.cpp")
  target_link_libraries(render-icons PRIVATE Qt6::Svg KeelbrightCompile)
  set_target_properties(render-icons PROPERTIES AUTOMOC OFF)

  file(MAKE_DIRECTORY "${KEELBRIGHT_ICONS}")
  list(TRANSFORM KEELBRIGHT_ICON_SIZES REPLACE "(.+)" "${KEELBRIGHT_ICONS}/\\1.png" OUTPUT_VARIABLE pictures)
  # What Qt and the font library keep until a process ends is no leak of the program.
  add_custom_command(OUTPUT ${pictures}
    COMMAND "${CMAKE_COMMAND}" -E env ASAN_OPTIONS=detect_leaks=0
      $<TARGET_FILE:render-icons> "${large}" "${small}" "${KEELBRIGHT_ICONS}" ${KEELBRIGHT_ICON_SIZES}
    DEPENDS render-icons "${large}" "${small}"
    COMMENT "Drawing the icons")
  set(${result} ${pictures} PARENT_SCOPE)
endfunction()
