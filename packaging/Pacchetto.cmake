# The Debian package, made by `make package` from a build without sanitizers:
# zanto_<version>_<arch>.deb in the build folder.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zanto)
set(CPACK_PACKAGE_VENDOR ZANTO)
set(CPACK_PACKAGE_CONTACT "ZANTO <dev@zanto.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "drawing program for switch access")
set(CPACK_PACKAGE_DESCRIPTION [[
ZANTO is a drawing program for people who cannot use a mouse. Every
function is a button; a green ring stands on one button at a time, and
the user moves it and fires the button with five keys, two keys or a
single switch. The user interface is in Italian.]])
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${PROJECT_HOMEPAGE_URL})
# The libraries come from dpkg-shlibdeps; what is loaded at run time it cannot
# see: the SQLite driver of Qt SQL, and the fonts that stand in for Times New
# Roman and Arial. Debian 12 keeps the X11 platform plugin in libqt6gui6.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6sql6-sqlite, fonts-liberation2, fonts-dejavu-core")
# Spoken scanning speaks through speech-dispatcher with an Italian voice; the
# program runs silent without them, so they are recommended, not required.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-speech-speechd-plugin, speech-dispatcher-espeak-ng")
include(CPack)
