# Half of every compile is reading the headers of Qt and of the standard library, so they are read once
# for a kind of target and reused by all targets of that kind. One set takes some 130 MB, so there are
# three, not one for each target. -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON builds without them, and so shows
# what a file has forgotten to include.
#   keelbright_precompiled(NAME LINKS target... HEADERS header...)
function(keelbright_precompiled name)
  cmake_parse_arguments(SET "" "" "LINKS;HEADERS" ${ARGN})
  set(source "${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp")
  file(CONFIGURE OUTPUT "${source}" CONTENT "// Nothing but the precompiled headers.\n")
  add_library(${name} OBJECT "${source}")
  set_target_properties(${name} PROPERTIES AUTOMOC OFF)
  target_link_libraries(${name} PRIVATE ${SET_LINKS} KeelbrightCompile)
  target_precompile_headers(${name} PRIVATE ${SET_HEADERS})
endfunction()

set(KEELBRIGHT_CORE_HEADERS
  <QByteArray> <QDateTime> <QHash> <QList> <QObject> <QString> <QStringList>
  <algorithm> <expected> <functional> <memory> <optional>)

# For the floors and the test helpers without a window, and for those with one.
keelbright_precompiled(KeelbrightCoreHeaders LINKS Qt6::Core HEADERS ${KEELBRIGHT_CORE_HEADERS})
keelbright_precompiled(KeelbrightWindowHeaders LINKS Qt6::Widgets
  HEADERS ${KEELBRIGHT_CORE_HEADERS} <QApplication> <QPainter> <QVBoxLayout> <QWidget>)
