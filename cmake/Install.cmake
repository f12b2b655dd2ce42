# Where a Linux desktop expects the program's pieces, and a .deb package of them.
include(GNUInstallDirs)

install(TARGETS talavex talavex-sim RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
set(TALAVEX_DATA_DIR ${CMAKE_INSTALL_DATADIR}/talavex)
install(FILES ${CMAKE_SOURCE_DIR}/resources/DefaultSettings.dat DESTINATION ${TALAVEX_DATA_DIR})
# The manual's pages show the screenshots from the folder beside them.
install(DIRECTORY ${CMAKE_SOURCE_DIR}/docs/manual/ DESTINATION "${TALAVEX_DATA_DIR}/Web Manual")
install(DIRECTORY ${CMAKE_SOURCE_DIR}/docs/screenshots/ DESTINATION ${TALAVEX_DATA_DIR}/screenshots)
install(FILES ${CMAKE_SOURCE_DIR}/resources/talavex.desktop
  DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_SOURCE_DIR}/resources/talavex.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME talavex)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "TALAVEX developers <talavex@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Data logger for a hand-held infrared pyrometer on a serial line")
set(CPACK_PACKAGE_DESCRIPTION
  "TALAVEX receives live readings or the stored memory of an infrared pyrometer over a serial line,\
 plots them on a strip chart, shows them on a temperature bar with alarm limits, and keeps them\
 in files that can be saved, exported as spreadsheets and reloaded.")
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# The Qt plugins the program loads at run time are not found by the library scan.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, libqt6svg6, libqt6multimedia6")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "gstreamer1.0-plugins-base, gstreamer1.0-plugins-good, xdg-utils")
set(CPACK_STRIP_FILES ON)
include(CPack)
