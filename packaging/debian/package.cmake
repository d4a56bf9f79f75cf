# Configures cpack for two Debian packages: tarvin is the terminal program, without Qt;
# tarvin-duplicate-file-remover has the window and depends on tarvin.
if(TARVIN_PACKAGE)
    find_program(TARVIN_DPKG_SHLIBDEPS dpkg-shlibdeps)
    find_program(TARVIN_FILE file)
    if(NOT TARVIN_DPKG_SHLIBDEPS OR NOT TARVIN_FILE)
        message(FATAL_ERROR "A package is made with dpkg-shlibdeps and file, which are not both here: "
            "apt-get install --no-install-recommends dpkg-dev file")
    endif()
endif()
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tarvin)
set(CPACK_PACKAGE_VENDOR "Tarvin Software")
set(CPACK_PACKAGE_CONTACT
    "Tarvin Software <maintainers@users.noreply.c-seed-7f7ff67a.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "find files with identical content and move copies to the Trash")

set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_COMPONENTS_ALL terminal)
set(CPACK_DEBIAN_TERMINAL_PACKAGE_NAME tarvin)
set(CPACK_DEBIAN_WINDOW_PACKAGE_NAME tarvin-duplicate-file-remover)
if(TARVIN_BUILD_WINDOW)
    list(APPEND CPACK_COMPONENTS_ALL window)
endif()

# The Debian release of the build, with its number: packages have other names in other releases.
set(TARVIN_DEBIAN_RELEASE "")
set(TARVIN_DEBIAN_NAME unstable)
set(lines "")
if(EXISTS /etc/os-release)
    file(STRINGS /etc/os-release lines REGEX "^VERSION_(ID|CODENAME)=")
endif()
foreach(line IN LISTS lines)
    if(line MATCHES "^VERSION_ID=\"?([0-9]+)")
        set(TARVIN_DEBIAN_RELEASE "~deb${CMAKE_MATCH_1}")
    elseif(line MATCHES "^VERSION_CODENAME=\"?([a-z]+)")
        set(TARVIN_DEBIAN_NAME ${CMAKE_MATCH_1})
    endif()
endforeach()
# Package revision: increment it when the same program version is packaged again.
set(CPACK_DEBIAN_PACKAGE_RELEASE 2${TARVIN_DEBIAN_RELEASE})
set(packed ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
configure_file(${CMAKE_CURRENT_LIST_DIR}/changelog.in debian/changelog @ONLY)
configure_file(${CMAKE_CURRENT_LIST_DIR}/documents.cmake.in debian/documents.cmake @ONLY)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_BINARY_DIR}/debian/documents.cmake)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
foreach(component IN ITEMS terminal window)
    string(TOUPPER ${component} part)
    file(READ ${CMAKE_CURRENT_LIST_DIR}/description.${component} description)
    string(STRIP "${description}" CPACK_DEBIAN_${part}_DESCRIPTION)
endforeach()

# Both programs used to be in one package.
set(CPACK_DEBIAN_TERMINAL_PACKAGE_BREAKS "tarvin-duplicate-file-remover (<< ${PROJECT_VERSION}-2~)")
set(CPACK_DEBIAN_TERMINAL_PACKAGE_REPLACES ${CPACK_DEBIAN_TERMINAL_PACKAGE_BREAKS})
set(CPACK_DEBIAN_WINDOW_PACKAGE_DEPENDS "tarvin (= ${packed})")
# HTTPS; a font narrow enough for file dates; previews of HEIC, AVIF, JPEG 2000, WebP and TIFF, each
# loaded on first use; Qt's own texts in the languages of the window; native Wayland windows; the
# programs that open a file or the guide.
set(recommended ca-certificates fonts-liberation libheif1 libopenjp2-7 qt6-image-formats-plugins)
set(suggested gvfs)  # for file managers that show the Trash and restore files
if(NOT TARVIN_DEBIAN_NAME STREQUAL "bookworm")  # SVG, and more preview formats
    list(APPEND recommended qt6-svg-plugins)
    list(APPEND suggested kimageformat6-plugins)
endif()
list(APPEND recommended qt6-translations-l10n qt6-wayland xdg-utils)
list(JOIN recommended ", " CPACK_DEBIAN_WINDOW_PACKAGE_RECOMMENDS)
list(JOIN suggested ", " CPACK_DEBIAN_WINDOW_PACKAGE_SUGGESTS)
include(CPack)
