# SPDX-License-Identifier: MIT
# The Debian package of what CMakeLists.txt installs: scripts/package makes it.

# What is packed has been built beforehand, the tests and samples need not be.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON PARENT_SCOPE)

set(CPACK_PACKAGE_CONTACT "Turf Desk contributors <contributors@${TURFDESK_DOMAIN}>")
execute_process(COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/debian-changelog ${PROJECT_VERSION} ${CPACK_PACKAGE_CONTACT} ${release_day}
                INPUT_FILE ${CMAKE_SOURCE_DIR}/CHANGELOG.md OUTPUT_FILE ${generated}/changelog COMMAND_ERROR_IS_FATAL ANY)
turfdesk_compressed(${documents} ${generated}/changelog)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME turfdesk)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "manager for the add-on courses of a golf game")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Turf Desk looks after the add-on content of the golf game Marrowfell 2002:
courses, the shared libraries that they require, and the zip packages in which
courses travel. It installs, moves, packs and uninstalls them.

The package holds turfdesk, a program with windows, which also opens course
packages from a file manager, and turfctl, which does the same work in a
terminal and for scripts.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Without the first three a file manager knows neither the file types nor what opens them; the fourth opens documents. The
# game's own converters run under Wine.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "desktop-file-utils, shared-mime-info, hicolor-icon-theme, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS wine)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
# Whatever the mask of whoever packs it.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ
                                                WORLD_EXECUTE)
include(CPack)
