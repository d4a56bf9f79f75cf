# Desktop entries, icons and metadata of the window program.
set(drawings ${PROJECT_SOURCE_DIR}/resources)
install(FILES
    linux/tarvin-duplicate-file-remover.desktop
    linux/zz-tarvin-duplicate-file-remover-folders.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES linux/tarvinsoftware.tarvin.duplicate_file_remover.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(DIRECTORY ${drawings}/icons/hicolor DESTINATION ${CMAKE_INSTALL_DATADIR}/icons)
install(FILES ${drawings}/app_icon.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps
    RENAME tarvin-duplicate-file-remover.svg)
