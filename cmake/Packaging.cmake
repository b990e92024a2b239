# `cpack -G DEB` in the build folder makes a Debian package of what `cmake --install` puts in
# place; its run-time dependencies are read off the programs by dpkg-shlibdeps.

set(CPACK_PACKAGE_NAME "cxf-compare")
set(CPACK_PACKAGE_VENDOR "The CxF Compare developers")
set(CPACK_PACKAGE_CONTACT "The CxF Compare developers <cxf-compare@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Compare two measured colours from CxF documents")
set(CPACK_PACKAGE_DESCRIPTION
    "Reads a CxF colour document for each of two swatches, checks D50 and the 2 degree
observer, averages a project's patches and shows the CMC (2:1) colour difference with its
lightness, chroma and hue terms. Includes the command-line tool cxf-delta.")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_RESOURCE_FILE_LICENSE ${CMAKE_SOURCE_DIR}/LICENSE)
set(CPACK_GENERATOR "DEB")
set(CPACK_PACKAGE_INSTALL_DIRECTORY "/usr")
set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION "graphics")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${CXF_HOMEPAGE_URL})
# The platform plugin Qt loads at run time is not a link dependency, so shlibdeps cannot see it.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins")
include(CPack)
