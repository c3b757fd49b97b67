find_package(GTest REQUIRED)
include(GoogleTest)

# One test program a folder of the tree, one source a unit.
#   keelbright_tests(NAME SOURCES file... LINKS target...)
function(keelbright_tests name)
  cmake_parse_arguments(SUITE "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${SUITE_SOURCES})
  target_link_libraries(${name} PRIVATE ${SUITE_LINKS} GTest::gmock_main KeelbrightCompile)
  target_precompile_headers(${name} PRIVATE <gtest/gtest.h> <QString> <QList> <expected> <memory>)
  gtest_discover_tests(${name} TEST_PREFIX "${name}." DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 180)
endfunction()
