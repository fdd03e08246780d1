# Read by CPack once for each kind of package.
if(CPACK_GENERATOR STREQUAL "NSIS")
  set(CPACK_PACKAGE_FILE_NAME "gateway3-${CPACK_PACKAGE_VERSION}-setup${CPACK_GATEWAY_SUFFIX}")
  # The set-up program and the uninstaller in it are signed by the compiler of the set-up script.
  if(NOT "$ENV{QMK_SIGN_PFX}" STREQUAL "")
    set(sign "${CPACK_GATEWAY_SOURCE}/packaging/sign")
    set(CPACK_GATEWAY_NSIS_SIGNING "!finalize '\"${sign}\" \"%1\"' = 0
!uninstfinalize '\"${sign}\" \"%1\"' = 0")
  endif()
else()
  set(CPACK_PACKAGE_FILE_NAME "gateway3-${CPACK_PACKAGE_VERSION}-portable${CPACK_GATEWAY_SUFFIX}")
  # One folder, named for the person who unpacks it.
  set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
  set(CPACK_PACKAGING_INSTALL_PREFIX "/${CPACK_PACKAGE_NAME}")
  # What tells the program that it is carried around.
  set(CPACK_INSTALLED_DIRECTORIES "${CPACK_GATEWAY_SOURCE}/packaging/portable" ".")
endif()
