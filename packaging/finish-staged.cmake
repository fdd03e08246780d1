# Run by CPack between laying out a package's files and packing them: signs the program, and gives
# all files the same time, so that two builds of one commit give the same packages.
if(NOT "$ENV{QMK_SIGN_PFX}" STREQUAL "")
  file(GLOB_RECURSE programs "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*.exe")
  if(NOT programs)
    message(FATAL_ERROR "there is no program to sign in ${CPACK_TEMPORARY_INSTALL_DIRECTORY}")
  endif()
  execute_process(COMMAND "${CPACK_GATEWAY_SOURCE}/packaging/sign" ${programs}
    COMMAND_ERROR_IS_FATAL ANY)
endif()
if(NOT "$ENV{SOURCE_DATE_EPOCH}" STREQUAL "")
  execute_process(COMMAND find "${CPACK_TEMPORARY_INSTALL_DIRECTORY}" -depth
    -exec touch -d "@$ENV{SOURCE_DATE_EPOCH}" {} + COMMAND_ERROR_IS_FATAL ANY)
endif()
