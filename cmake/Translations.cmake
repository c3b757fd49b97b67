# The texts of the window in other languages: translations/keelbright_LANGUAGE.ts, built into the program.
# docs/translating.md says how a language comes to it.
find_package(Qt6 6.4 COMPONENTS LinguistTools QUIET)
if(NOT TARGET Qt6::lrelease)
  message(FATAL_ERROR "Qt's tools for translations are missing (lrelease, lupdate). "
    "On Debian: apt-get install --no-install-recommends -y qt6-tools-dev qt6-l10n-tools")
endif()

file(GLOB KEELBRIGHT_TRANSLATIONS CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/translations/keelbright_*.ts")

# Builds the texts of all languages into the target.
#   keelbright_translations(TARGET)
function(keelbright_translations target)
  set_source_files_properties(${KEELBRIGHT_TRANSLATIONS}
    PROPERTIES OUTPUT_LOCATION "${PROJECT_BINARY_DIR}/translations")
  qt_add_lrelease(${target} TS_FILES ${KEELBRIGHT_TRANSLATIONS}
    OPTIONS -silent QM_FILES_OUTPUT_VARIABLE texts NO_GLOBAL_TARGET)
  qt_add_resources(${target} translations
    PREFIX /translations BASE "${PROJECT_BINARY_DIR}/translations" FILES ${texts})
endfunction()

# Notes the texts of the sources in the files of all languages.
add_custom_target(update-translations
  COMMAND Qt6::lupdate -silent -locations none -no-obsolete -I . Keelbright KeelbrightCore
    -ts ${KEELBRIGHT_TRANSLATIONS}
  WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
  COMMENT "Noting the texts of the sources in translations/" VERBATIM)
