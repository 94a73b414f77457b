# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Makes the pictures of the documentation anew.
#
# usage: ./dev pictures [--check]
#
# The tour drives the program and takes a picture of every page; those that the documentation shows are copied to
# docs/images. With --check nothing is copied: the command fails when a picture that the documentation shows is not
# among those that the tour takes, because its page is gone or has another name.

need build
preset=$(default_preset)
build "$preset" pelmora_tour
output=build/pictures
# Tabs show the path of a file; the pictures are to show the same one wherever they are made.
samples=/tmp/samples
rm -rf "$output" "$samples"
mkdir -p "$samples"
cp data/*.txt data/*.cor data/*.csv "$samples"
QT_QPA_PLATFORM=offscreen "build/$preset/tools/pelmora_tour" "$output" "$samples" >"$output.log" 2>&1 || {
    cat "$output.log"
    exit 1
}

shown=$(grep -ohE 'images/[A-Za-z0-9._-]+\.png' README.md docs/*.md | sed 's|.*/||' | sort -u)
missing=0
for picture in $shown; do
    if [ ! -f "$output/$picture" ]; then
        echo "The tour takes no picture $picture, but the documentation shows it." >&2
        missing=1
    elif [ "${1:-}" = --check ] && [ ! -f "docs/images/$picture" ]; then
        echo "docs/images/$picture is missing: ./dev pictures makes it." >&2
        missing=1
    elif [ "${1:-}" != --check ]; then
        mkdir -p docs/images
        cp "$output/$picture" docs/images/
    fi
done
[ $missing -eq 0 ] || exit 1
for file in docs/images/*.png; do
    grep -qxF "$(basename "$file")" <<<"$shown" || {
        echo "$file is shown nowhere." >&2
        exit 1
    }
done
echo "The documentation shows $(wc -w <<<"$shown") pictures, and the tour takes all of them."
