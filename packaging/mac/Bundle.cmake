# The program as macOS wants it: one folder with the program, its description and its icon.
#   keelbright_bundle(TARGET)
# What comes after a build (Qt inside the bundle, signing, notarising) stands in docs/macos.md.
function(keelbright_bundle target)
  set(iconset "${PROJECT_BINARY_DIR}/keelbright.iconset")
  set(icon "${PROJECT_BINARY_DIR}/keelbright.icns")
  set(copies "")
  # Each size a second time as the one for screens of twice the density.
  foreach(size 16 32 128 256 512)
    math(EXPR twice "2 * ${size}")
    list(APPEND copies
      COMMAND "${CMAKE_COMMAND}" -E copy "${KEELBRIGHT_ICONS}/${size}.png" "${iconset}/icon_${size}x${size}.png"
      COMMAND "${CMAKE_COMMAND}" -E copy "${KEELBRIGHT_ICONS}/${twice}.png" "${iconset}/icon_${size}x${size}@2x.png")
  endforeach()
  list(TRANSFORM KEELBRIGHT_ICON_SIZES REPLACE "(.+)" "${KEELBRIGHT_ICONS}/\\1.png" OUTPUT_VARIABLE pictures)
  add_custom_command(OUTPUT "${icon}"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${iconset}"
    ${copies}
    COMMAND iconutil --convert icns --output "${icon}" "${iconset}"
    DEPENDS ${pictures} render-icons
    COMMENT "Putting the icons together")
  add_custom_target(bundle-icon DEPENDS "${icon}")
  # The pictures are drawn for the library with the screens.
  add_dependencies(bundle-icon KeelbrightScreens)
  add_dependencies(${target} bundle-icon)

  target_sources(${target} PRIVATE "${icon}")
  set_source_files_properties("${icon}" PROPERTIES MACOSX_PACKAGE_LOCATION Resources GENERATED ON)
  set_target_properties(${target} PROPERTIES
    OUTPUT_NAME "Keel Bright"
    MACOSX_BUNDLE ON
    MACOSX_BUNDLE_INFO_PLIST "${PROJECT_SOURCE_DIR}/packaging/mac/Info.plist.in"
    MACOSX_BUNDLE_ICON_FILE keelbright.icns)
  install(TARGETS ${target} BUNDLE DESTINATION .)
endfunction()
