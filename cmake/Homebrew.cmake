# Where macOS' package manager keeps what is not for everybody to find.
find_program(KEELBRIGHT_HOMEBREW brew)
mark_as_advanced(KEELBRIGHT_HOMEBREW)
if(KEELBRIGHT_HOMEBREW)
  foreach(formula qt icu4c openssl@3 googletest google-benchmark)
    execute_process(COMMAND "${KEELBRIGHT_HOMEBREW}" --prefix ${formula}
      OUTPUT_VARIABLE prefix OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE failed)
    if(NOT failed AND IS_DIRECTORY "${prefix}")
      list(APPEND CMAKE_PREFIX_PATH "${prefix}")
    endif()
  endforeach()
endif()
