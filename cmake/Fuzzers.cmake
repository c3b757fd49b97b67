# What tools/fuzz builds: all of them, and nothing that has a window.
add_custom_target(fuzzers)

# One libFuzzer program for each reader of what the program did not write itself. Its seeds lie in
# tests/fuzz/corpus/NAME.
#   keelbright_fuzzer(NAME SOURCES file... LINKS target...)
function(keelbright_fuzzer name)
  cmake_parse_arguments(FUZZER "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} EXCLUDE_FROM_ALL ${FUZZER_SOURCES})
  target_link_libraries(${name} PRIVATE ${FUZZER_LINKS} KeelbrightCompile)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  set_target_properties(${name} PROPERTIES
    AUTOMOC OFF RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/fuzzers")
  add_dependencies(fuzzers ${name})
endfunction()
