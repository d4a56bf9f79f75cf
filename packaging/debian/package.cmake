# How cpack makes the package for Debian out of what is installed.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tarvin-duplicate-file-remover)
set(CPACK_PACKAGE_VENDOR "Tarvin Software")
set(CPACK_PACKAGE_CONTACT
    "Tarvin Software <maintainers@users.noreply.c-seed-7f7ff67a.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "find files with identical content and move copies to the Trash")
file(READ ${CMAKE_CURRENT_LIST_DIR}/description CPACK_PACKAGE_DESCRIPTION)
string(STRIP "${CPACK_PACKAGE_DESCRIPTION}" CPACK_PACKAGE_DESCRIPTION)

set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/documents.cmake)

# Of the package, not of the program: counted up when the same program is packed anew.
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# GIO, which moves files to the Trash, is loaded when it is needed: nothing else asks for it.
set(CPACK_DEBIAN_PACKAGE_DEPENDS libglib2.0-0)
# Addresses by https; letters narrow enough for the properties of a file; previews of HEIC and AVIF,
# of JPEG 2000, of WebP and TIFF, each loaded when it is needed; a window of Wayland's own; the
# programs that open a file or the guide.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "ca-certificates, fonts-liberation, libheif1, libopenjp2-7, qt6-image-formats-plugins, qt6-wayland, xdg-utils")
# For file managers that show the Trash and put files back; drawings and more formats for
# previews on Debian 13.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "gvfs, kimageformat6-plugins, qt6-svg-plugins")
include(CPack)
