# A floor of the house is a static library that links only the floors below it.
#   keelbright_floor(NAME SOURCES file... LINKS target...)
function(keelbright_floor name)
  cmake_parse_arguments(FLOOR "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${FLOOR_SOURCES})
  target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}")
  target_link_libraries(${name} PUBLIC ${FLOOR_LINKS} PRIVATE KeelbrightCompile)
  # Half of every compile is reading Qt's headers; read them once a floor.
  target_precompile_headers(${name} PRIVATE <QObject> <QString> <QList> <expected> <optional> <memory>)
endfunction()
