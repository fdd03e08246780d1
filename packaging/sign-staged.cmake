# Run by CPack between laying out a package's files and packing them: signs the program.
if(NOT "$ENV{QMK_SIGN_PFX}" STREQUAL "")
  file(GLOB_RECURSE programs "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*.exe")
  if(NOT programs)
    message(FATAL_ERROR "there is no program to sign in ${CPACK_TEMPORARY_INSTALL_DIRECTORY}")
  endif()
  execute_process(COMMAND "${CPACK_GATEWAY_SOURCE}/packaging/sign" ${programs}
    COMMAND_ERROR_IS_FATAL ANY)
endif()
