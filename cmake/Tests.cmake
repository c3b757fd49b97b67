find_package(GTest REQUIRED)
include(GoogleTest)

# The thread sanitizer is told what Qt, which is not built with it, puts in an order; an object
# library, because its definitions have to come before those of Qt.
set(KEELBRIGHT_HAS_THREAD_SANITIZER OFF)
if(KEELBRIGHT_SANITIZE STREQUAL "thread")
  set(KEELBRIGHT_HAS_THREAD_SANITIZER ON)
  add_library(KeelbrightThreadOrder OBJECT "${PROJECT_SOURCE_DIR}/tests/threads/QtOrder.cpp")
  target_link_libraries(KeelbrightThreadOrder PRIVATE Qt6::Core KeelbrightCompile)
endif()

# One test program a folder of the tree, one source a unit.
#   keelbright_tests(NAME SOURCES file... LINKS target...)
function(keelbright_tests name)
  cmake_parse_arguments(SUITE "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${SUITE_SOURCES})
  target_link_libraries(${name} PRIVATE ${SUITE_LINKS} GTest::gmock_main KeelbrightCompile
    $<$<BOOL:${KEELBRIGHT_HAS_THREAD_SANITIZER}>:KeelbrightThreadOrder>)
  target_precompile_headers(${name} PRIVATE <gtest/gtest.h> <QString> <QList> <expected> <memory>)
  gtest_discover_tests(${name} TEST_PREFIX "${name}." DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 180)
endfunction()
