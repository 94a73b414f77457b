# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Makes the Debian package and checks it.
#
# usage: ./dev package
#
# The package is left in build/package/package. With SOURCE_DATE_EPOCH set it is the same to the byte every
# time. The checks are those of desktop-file-validate, appstreamcli and lintian.

need build package

say "Checking the desktop entry and the metainfo"
desktop-file-validate packaging/*.desktop
appstreamcli validate --no-net packaging/*.metainfo.xml

build package
say "Packing"
rm -rf build/package/package
cpack --preset package

say "Checking the package"
lintian --fail-on error,warning --suppress-tags-from-file packaging/debian/lintian-exceptions build/package/package/*.deb
unpacked=$PWD/build/package/unpacked
rm -rf "$unpacked"
dpkg-deb --extract build/package/package/*.deb "$unpacked"
programs=$(find "$unpacked" -path '*/bin/*' -type f -exec sh -c 'head -c 4 "$1" | grep -q ELF' - {} \; -print | paste -sd ';')
cmake -D "PROGRAMS=$programs" -D HARDENED=ON -P cmake/CheckPrograms.cmake
ls -l build/package/package/*.deb
