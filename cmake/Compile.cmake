# The one interface target that every target of the project links: warnings,
# Qt's strictness and the instrumentation of the chosen preset.
add_library(KeelbrightCompile INTERFACE)

target_compile_options(KeelbrightCompile INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
  $<$<BOOL:${KEELBRIGHT_WERROR}>:-Werror>
  # libstdc++ 12 sorts stably by means that it has marked deprecated itself, and clang warns of
  # each caller. What is deprecated in ours, gcc reports.
  $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>)
target_compile_definitions(KeelbrightCompile INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH
  QT_STRICT_ITERATORS QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)

if(KEELBRIGHT_SANITIZE)
  target_compile_options(KeelbrightCompile INTERFACE
    -fsanitize=${KEELBRIGHT_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(KeelbrightCompile INTERFACE -fsanitize=${KEELBRIGHT_SANITIZE})
endif()
if(KEELBRIGHT_FUZZ)
  target_compile_options(KeelbrightCompile INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(KEELBRIGHT_COVERAGE)
  target_compile_options(KeelbrightCompile INTERFACE --coverage)
  target_link_options(KeelbrightCompile INTERFACE --coverage)
endif()
