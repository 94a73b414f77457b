# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT

# The Debian package, made by cpack: what is installed, and the component "debian" that only the package holds.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME pelmora)
set(CPACK_PACKAGE_VENDOR "The Pelmora Developers")
set(CPACK_PACKAGE_CONTACT "The Pelmora Developers <contact@pelmora.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://www.pelmora.example/)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "exploratory factor analysis with circular diagrams")
set(CPACK_PACKAGE_DESCRIPTION
"Pelmora looks for the few factors behind many variables. It reads a plain
text file of raw data or of correlations, computes correlations, eigenvalues
and principal components, and rotates factors by Varimax or by its own
Pelmora rotation. Loadings are shown as a circular diagram, together with
factor scores and minimal pairs of variables; every table can be written to
a text file.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION math)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Opening folders and the guide goes through xdg-open and whatever shows PDF files.
# pelmora-large works on Dask; all else does without Python.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, python3, python3-distributed")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "pdf-viewer, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION TRUE)
set(CPACK_INSTALL_CMAKE_PROJECTS
    "${CMAKE_BINARY_DIR};Pelmora;ALL;/" "${CMAKE_BINARY_DIR};Pelmora;debian;/")
include(CPack)

set(debian_doc ${CMAKE_INSTALL_DATADIR}/doc/pelmora)
pelmora_compress(${packaging}/debian/changelog changelog.Debian.gz)
install(FILES ${packaging}/debian/copyright ${CMAKE_BINARY_DIR}/packaging/changelog.Debian.gz
    DESTINATION ${debian_doc} COMPONENT debian EXCLUDE_FROM_ALL)
