# Run by cpack between installing and packing: adds what only a package has, and compresses what
# Debian wants compressed, without the time and the name in the result.
set(packaged ${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX}/share)
set(documents ${packaged}/doc/${CPACK_PACKAGE_NAME})
set(overrides ${packaged}/lintian/overrides)

file(MAKE_DIRECTORY ${overrides})
file(COPY_FILE ${CMAKE_CURRENT_LIST_DIR}/lintian-overrides ${overrides}/${CPACK_PACKAGE_NAME})
file(COPY_FILE ${CMAKE_CURRENT_LIST_DIR}/changelog ${documents}/changelog.Debian)
file(CHMOD ${overrides}/${CPACK_PACKAGE_NAME} ${documents}/changelog.Debian
    PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
file(CHMOD ${packaged}/lintian ${overrides}
    PERMISSIONS ${CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})

file(GLOB pages ${packaged}/man/man1/*.1)
execute_process(
    COMMAND gzip -9 --no-name ${pages} ${documents}/changelog ${documents}/changelog.Debian
    COMMAND_ERROR_IS_FATAL ANY)
