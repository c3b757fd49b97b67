# Fills in the metainfo as the file KEELBRIGHT_METAINFO. It names the pages of the program and its pictures only
# where KEELBRIGHT_HOMEPAGE says where they are. Also a script of its own:
#   cmake -DPROJECT_VERSION=... -DKEELBRIGHT_RELEASE_DATE=... -DKEELBRIGHT_METAINFO=... -P packaging/Metainfo.cmake
set(KEELBRIGHT_ADDRESSES "")
if(KEELBRIGHT_HOMEPAGE)
  file(READ "${CMAKE_CURRENT_LIST_DIR}/addresses.xml.in" addresses)
  string(CONFIGURE "${addresses}" KEELBRIGHT_ADDRESSES @ONLY)
endif()
configure_file("${CMAKE_CURRENT_LIST_DIR}/com.keelbright.keelbright.metainfo.xml.in" "${KEELBRIGHT_METAINFO}" @ONLY)
