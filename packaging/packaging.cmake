# The installer and the portable archive, made by CPack; ./package runs it for both machines.
find_program(GATEWAY_MARKDOWN cmark-gfm DOC "Turns the handbook's pages into HTML")

# The installed help page: the handbook in one file, so that it can be copied and mailed.
file(GLOB handbook_pages CONFIGURE_DEPENDS docs/handbook/*.md docs/pictures/*.png)
set(handbook ${CMAKE_BINARY_DIR}/handbook/gateway-handbook.html)
add_custom_command(OUTPUT ${handbook}
  COMMAND ${CMAKE_COMMAND} -E env GATEWAY_MARKDOWN=${GATEWAY_MARKDOWN}
    ${CMAKE_CURRENT_SOURCE_DIR}/packaging/make-handbook ${PROJECT_VERSION} ${handbook}
  DEPENDS ${handbook_pages} packaging/make-handbook packaging/handbook.css
  WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
  VERBATIM)
add_custom_target(handbook DEPENDS ${handbook})

install(TARGETS gateway3 RUNTIME DESTINATION .)
install(FILES ${handbook} DESTINATION help)

set(CPACK_GENERATOR NSIS ZIP)
set(CPACK_PACKAGE_NAME "Quillmark Suite 3 Gateway")
set(CPACK_PACKAGE_VENDOR "Quillmark")
set(CPACK_PACKAGE_INSTALL_DIRECTORY "Quillmark Suite 3")
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_VERBATIM_VARIABLES ON)
# The set-up script of this folder instead of CPack's own, which wants an administrator.
set(CPACK_MODULE_PATH ${CMAKE_CURRENT_SOURCE_DIR}/packaging)
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_SOURCE_DIR}/packaging/for-generator.cmake)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/packaging/finish-staged.cmake)
set(CPACK_GATEWAY_SOURCE ${CMAKE_SOURCE_DIR})
# The set-up program is for the same machines as the program in it.
if(GATEWAY_ARCHITECTURE STREQUAL "amd64")
  set(CPACK_GATEWAY_SUFFIX "")
  set(CPACK_GATEWAY_NSIS_TARGET amd64-unicode)
else()
  set(CPACK_GATEWAY_SUFFIX "-x86")
  set(CPACK_GATEWAY_NSIS_TARGET x86-unicode)
endif()
include(CPack)
