# The Debian package that `cpack` makes of what Install.cmake places; script/package does it all.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME wallwright)
set(CPACK_PACKAGE_VENDOR "The Wallwright authors")
set(CPACK_PACKAGE_CONTACT "The Wallwright authors <authors@wallwright.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "designer of pixel maps for LED video walls")
set(CPACK_PACKAGE_DESCRIPTION
    "Wallwright draws the test charts by which a crew sets up an LED wall: every\n\
panel at its place on the output, with its frame, its label, corner\n\
coordinates, and the path of the data through the panels of each port. It\n\
tells ports and current, and writes PNG and PSD. The same works without a\n\
window, for scripts.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${WALLWRIGHT_HOME_URL})
# The linked libraries are found in the program. Its icons are SVG, which Qt reads by a plugin that nothing links.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6, hicolor-icon-theme")
# The last two take up what is installed for the desktop, when it is installed.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-image-formats-plugins, qt6-wayland, shared-mime-info, desktop-file-utils")

include(CPack)
