# cpack -G DEB: velorama_<version>-<revision>_<architecture>.deb
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME velorama)
set(CPACK_PACKAGE_VENDOR Brightquay)
set(CPACK_PACKAGE_CONTACT "Brightquay <packages@velorama.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "full-screen shows from folders of photographs")
set(CPACK_PACKAGE_DESCRIPTION
"Velorama shows the BMP, JPG and GIF pictures of a folder as thumbnails. Pick
the ones you like into the slide bar, bring them into order and start the
show: each picture fades slowly into the next, with MP3, WAV and MIDI music
under it.

Slides are kept as albums and can be written as web pages. Any picture can be
looked at in a preview and set as the wallpaper of the desktop.")
set(CPACK_PACKAGE_HOMEPAGE_URL "${VELORAMA_SERVER_ROOT}Velorama/index.html")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/open_folders.cmake)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# The libraries are found by the package tools. MIDI files need a General MIDI font besides.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "timgm6mb-soundfont | sf2-soundfont-gm")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
  "desktop-file-utils, hicolor-icon-theme, qt6-wayland, shared-mime-info, xdg-utils")

include(CPack)
