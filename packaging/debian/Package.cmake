# The Debian package: cmake --build BUILD --target package
set(documents "${CMAKE_INSTALL_DATADIR}/doc/keelbright")

# The license of the font that is built in, as its own package has it.
file(READ "${PROJECT_SOURCE_DIR}/licenses/materialdesignicons-webfont.txt" font_copyright)
string(FIND "${font_copyright}" "\n\nLicense: " start)
string(SUBSTRING "${font_copyright}" ${start} -1 KEELBRIGHT_FONT_LICENSE)
string(STRIP "${KEELBRIGHT_FONT_LICENSE}" KEELBRIGHT_FONT_LICENSE)
configure_file(debian/copyright.in debian/copyright @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/debian/copyright" DESTINATION "${documents}")

execute_process(COMMAND date --utc --rfc-email --date=${KEELBRIGHT_RELEASE_DATE}
  OUTPUT_VARIABLE KEELBRIGHT_RELEASE_TIME OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
configure_file(debian/changelog.in debian/changelog @ONLY)
keelbright_compressed("${CMAKE_CURRENT_BINARY_DIR}/debian/changelog" "${documents}" changelog.gz)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME keelbright)
set(CPACK_PACKAGE_CONTACT "${KEELBRIGHT_MAINTAINER}")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
if(KEELBRIGHT_HOMEPAGE)
  set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${KEELBRIGHT_HOMEPAGE}")
endif()
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "calm, readable backup of your folders
Pick folders and a drive, and Keel Bright keeps a plain copy of those folders
there: ordinary files in ordinary folders, with a list of what the machine
looked like and reports that a person can read. Nothing needs the program to
be read back.

Around the backup it takes care of the machine: a health score, a cleaner for
caches and other junk, the installed applications and what they leave behind,
what takes the space, an organizer for loose files. What is cleaned or removed
goes to the Trash.")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What the linker does not see: the certificates without which every look-up over HTTPS fails.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "ca-certificates")
# Icons of applications in .icns, desktops without an X server, and the font of the window's design.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-image-formats-plugins, qt6-wayland, qt6-translations-l10n, fonts-inter")
include(CPack)
