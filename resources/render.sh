#!/bin/sh
# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Makes every PNG of the program's artwork from the drawings in this folder. The results are committed, so
# that a build needs neither rsvg-convert, pngquant nor the font of the welcome image.
set -eu
cd "$(dirname "$0")"

rsvg-convert --width 800 --height 600 splash.svg --output splash_800x600.png
# Read at every start: few colours are decoded in a third of the time, and these are all there are.
pngquant --force --speed 1 --strip --output splash_800x600.png 256 splash_800x600.png
rsvg-convert --width 64 --height 64 pelmora_icon.svg --output pelmora_icon3d_64x64.png

for size in 16 22 24 32 48 64 128 256; do
    folder=../packaging/icons/hicolor/${size}x${size}/apps
    mkdir -p "$folder"
    rsvg-convert --width $size --height $size pelmora_icon.svg --output "$folder/example.pelmora.Pelmora.png"
done
