find_package(GTest REQUIRED)
include(GoogleTest)

keelbright_precompiled(KeelbrightTestHeaders LINKS Qt6::Core GTest::gmock
  HEADERS ${KEELBRIGHT_CORE_HEADERS} <gtest/gtest.h>)

# The thread sanitizer has to know what Qt, which is not built with it, puts in an order; an object
# library, because its definitions have to come before those of Qt.
set(KEELBRIGHT_HAS_THREAD_SANITIZER OFF)
if(KEELBRIGHT_SANITIZE STREQUAL "thread")
  set(KEELBRIGHT_HAS_THREAD_SANITIZER ON)
  add_library(KeelbrightThreadOrder OBJECT "${PROJECT_SOURCE_DIR}/tests/threads/QtOrder.cpp")
  target_link_libraries(KeelbrightThreadOrder PRIVATE Qt6::Core KeelbrightCompile)
endif()

# A slow machine on demand, in every test program; the thread sanitizer's build defines the same
# function of Qt for itself.
if(NOT KEELBRIGHT_HAS_THREAD_SANITIZER)
  add_library(KeelbrightSlowMachine OBJECT "${PROJECT_SOURCE_DIR}/tests/support/SlowMachine.cpp")
  target_link_libraries(KeelbrightSlowMachine PRIVATE Qt6::Core KeelbrightCompile)
endif()

# For tests that have to know that the program is slower than it is, or makes calls of its own.
set(KEELBRIGHT_IS_SANITIZED false)
if(KEELBRIGHT_SANITIZE)
  set(KEELBRIGHT_IS_SANITIZED true)
endif()

# One test program a folder of the tree, one source a unit.
#   keelbright_tests(NAME SOURCES file... LINKS target... [ALONE test...] [SCALES scale...])
# Of the tests that ALONE names, each runs with no other beside it: they measure how long something
# takes, keep the whole machine busy, or look at what all its programs share.
# With SCALES, all tests run at each of these scales of the screen.
function(keelbright_tests name)
  cmake_parse_arguments(SUITE "" "" "SOURCES;LINKS;ALONE;SCALES" ${ARGN})
  add_executable(${name} ${SUITE_SOURCES})
  target_link_libraries(${name} PRIVATE ${SUITE_LINKS} GTest::gmock_main KeelbrightCompile
    $<IF:$<BOOL:${KEELBRIGHT_HAS_THREAD_SANITIZER}>,KeelbrightThreadOrder,KeelbrightSlowMachine>)
  target_precompile_headers(${name} REUSE_FROM KeelbrightTestHeaders)
  set(discovery TEST_PREFIX "${name}." DISCOVERY_TIMEOUT 60)
  foreach(scale IN LISTS SUITE_SCALES)
    gtest_discover_tests(${name} TEST_PREFIX "${name}.${scale}." DISCOVERY_TIMEOUT 60
      PROPERTIES TIMEOUT 180 ENVIRONMENT "QT_SCALE_FACTOR=${scale}")
  endforeach()
  if(SUITE_SCALES)
    return()
  endif()
  if(SUITE_ALONE)
    list(JOIN SUITE_ALONE ":" alone)
    gtest_discover_tests(${name} ${discovery} TEST_FILTER "${alone}" PROPERTIES TIMEOUT 180 RUN_SERIAL ON)
    list(APPEND discovery TEST_FILTER "-${alone}")
  endif()
  gtest_discover_tests(${name} ${discovery} PROPERTIES TIMEOUT 180)
endfunction()
