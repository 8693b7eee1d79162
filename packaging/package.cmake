# `make package`: a Debian package of both programs with the shipped resources, the manual, the
# desktop entry, the icon, the MIME types of level packages and a man page of vardolin-cli.
# Its Depends are the run-time packages that scripts/install-deps names.
include(GNUInstallDirs)
# `make package` builds everything first; the installation itself then only copies.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)

install(TARGETS vardolin vardolin-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
# The resources go where ResourcesFolder looks beside an installed program: ../share/vardolin.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/resources/ DESTINATION ${CMAKE_INSTALL_DATADIR}/vardolin)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/vardolin.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PROJECT_SOURCE_DIR}/resources/vardolin.png
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/256x256/apps)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/vardolin-mime.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME vardolin.xml)

set(MANPAGE ${PROJECT_BINARY_DIR}/vardolin-cli.1)
add_custom_command(OUTPUT ${MANPAGE}.gz
  COMMAND ${PROJECT_SOURCE_DIR}/packaging/make-manpage $<TARGET_FILE:vardolin-cli>
          ${PROJECT_VERSION} ${MANPAGE}
  COMMAND gzip -9nf ${MANPAGE}
  DEPENDS vardolin-cli ${PROJECT_SOURCE_DIR}/packaging/make-manpage
  COMMENT "Writing the man page of vardolin-cli from its --help"
  VERBATIM)
add_custom_target(manpage ALL DEPENDS ${MANPAGE}.gz)
install(FILES ${MANPAGE}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

execute_process(COMMAND ${PROJECT_SOURCE_DIR}/scripts/install-deps --runtime
                OUTPUT_VARIABLE RUNTIME_PACKAGES OUTPUT_STRIP_TRAILING_WHITESPACE)
string(REPLACE "\n" ", " RUNTIME_PACKAGES "${RUNTIME_PACKAGES}")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
             ${PROJECT_SOURCE_DIR}/scripts/install-deps)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vardolin)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Vardolin developers <vardolin@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "level manager for Tomb Raider: The Last Revelation custom levels")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Keeps any number of custom levels in an archive beside the level editor's folder, puts the\nchosen level in place and starts the game through Wine, keeps savegames and screenshots\nper level, and adds levels from the packages authors publish.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE amd64)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "${RUNTIME_PACKAGES}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
include(CPack)
