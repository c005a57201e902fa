# What a package holds, and where. The program finds its own files by the folders below, which are relative to the
# folder of the program, so that a package may be unpacked anywhere.
include(GNUInstallDirs)
set(SVS_PLUGIN_FOLDER ${CMAKE_INSTALL_LIBDIR}/svscheduler/plugins)
set(SVS_HELPER_FOLDER ${CMAKE_INSTALL_LIBEXECDIR}/svscheduler)
set(SVS_MANUAL_FOLDER ${CMAKE_INSTALL_DATADIR}/svscheduler/manual)
cmake_path(RELATIVE_PATH SVS_PLUGIN_FOLDER BASE_DIRECTORY ${CMAKE_INSTALL_BINDIR} OUTPUT_VARIABLE SVS_PLUGINS_FROM_PROGRAM)
cmake_path(RELATIVE_PATH SVS_HELPER_FOLDER BASE_DIRECTORY ${CMAKE_INSTALL_BINDIR} OUTPUT_VARIABLE SVS_HELPERS_FROM_PROGRAM)
cmake_path(RELATIVE_PATH SVS_MANUAL_FOLDER BASE_DIRECTORY ${CMAKE_INSTALL_BINDIR} OUTPUT_VARIABLE SVS_MANUAL_FROM_PROGRAM)

install(FILES ${CMAKE_SOURCE_DIR}/packaging/svscheduler.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_SOURCE_DIR}/packaging/svscheduler.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${CMAKE_SOURCE_DIR}/platform/theme/icons/scheduler.svg RENAME svscheduler.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
file(GLOB pages ${CMAKE_SOURCE_DIR}/packaging/man/*.1)
install(FILES ${pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
