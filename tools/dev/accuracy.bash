# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Measures the accuracy of the numerics.
#
# usage: ./dev accuracy
#        ./dev accuracy endless [count [threads [first]]]
#
# Prints the tables of docs/accuracy.md and puts them in their place there. Takes about a minute; LAPACK, R and
# mpmath serve for comparison. With "endless" it makes data sets and sees whether every rotation of them ends, and
# where it should: the table of docs/robustness.md, for which the processor is busy for an hour or two.

# shellcheck disable=SC2034 # need looks it up
packages+=([comparison]="r-base-core python3-mpmath")
need build accuracy comparison

folder=build/accuracy
work=$folder/measured
document=docs/accuracy.md

say "Building (accuracy)"
cmake --preset release -B "$folder" -DPELMORA_ACCURACY=ON -DBUILD_TESTING=OFF >/dev/null
cmake --build "$folder" --target pelmora_accuracy pelmora_endless
if [ "${1:-}" = endless ]; then
    say "Rotating"
    exec "$folder/tools/accuracy/pelmora_endless" "${@:2}"
fi
measure=$folder/tools/accuracy/pelmora_accuracy

say "Making what is compared with"
rm -rf "$work"
mkdir -p "$work"
Rscript tools/accuracy/published.R "$work"
"$measure" prepare "$work"
# The interpreter that the package is installed for.
/usr/bin/python3 tools/accuracy/eigenvalues.py "$work"
Rscript tools/accuracy/varimax.R "$work"

say "Measuring"
{
    echo
    printf 'Measured with R %s, ' "$(Rscript -e 'cat(format(getRversion()))')"
    "$measure" report "$work"
    echo
} | tee "$work/tables.md"

sed -i -e '/<!-- begin of the tables/,/<!-- end of the tables/{//!d}' \
    -e "/<!-- begin of the tables/r $work/tables.md" "$document"
echo "These tables are in $document now"
