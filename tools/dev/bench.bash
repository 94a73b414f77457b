# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Measures how fast the computations are, beside their plain forms and their goals, or how their time grows.
#
# usage: ./dev bench [pattern | growth]
#
# Runs the benchmarks but growth's (those whose names match the regular expression) on one core, five times each (some
# that take long less often), and prints the ratios of the medians beside the goals of bench/goals.txt. Leave the
# machine alone meanwhile. The table is also left in build/bench/table.md.
#
# growth: measures what is listed in bench/growth.txt up to large sizes, once, and prints how the time grows with the
# size, and where it comes to a second and to ten. The table is also left in build/bench/growth.md.

need build bench
build bench

# An expression for exactly those benchmarks of a program that match another one and are none of growth's: the library
# can match an expression or leave out what matches, not both. Lines with blanks tell of the build.
table_filter() {
    QT_QPA_PLATFORM=offscreen "$1" --benchmark_list_tests --benchmark_filter="$2" 2>/dev/null | awk '
        / / || /^growth/ { next }
        { gsub(/[][.*+?(){}|^$\\]/, "\\\\&"); names = names (names ? "|" : "") $0 }
        END { if (names) print "^(" names ")$" }'
}

if [ "${1:-}" = growth ]; then
    what=growth programs=(numerics reading program) filter=^growth repetitions=1
    report=(growth.awk bench/growth.txt)
else
    what=table programs=() filter=${1:-.} repetitions=5
    report=(ratios.awk bench/goals.txt)
    for program in build/bench/bench/bench_*; do
        [ -f "$program" ] && programs+=("${program##*/bench_}") # other targets leave folders
    done
fi
results=build/bench/results.txt
: >"$results"
log=build/bench/errors.txt
for program in "${programs[@]}"; do
    binary=build/bench/bench/bench_$program
    chosen=$filter
    [ "$what" = growth ] || chosen=$(table_filter "$binary" "$filter")
    [ "$chosen" ] || continue
    say "bench_$program"
    QT_QPA_PLATFORM=offscreen taskset -c 0 "$binary" --benchmark_filter="$chosen" \
        --benchmark_repetitions=$repetitions --benchmark_report_aggregates_only=true \
        --benchmark_min_time=0.2 2>"$log" |
        tee -a "$results" || {
        cat "$log" >&2
        exit 1
    }
done
[ -s "$results" ] || {
    echo "no benchmark matches \"$filter\"" >&2
    exit 1
}
say "The $what"
lib=tools/dev/lib
awk -f $lib/measured.awk -f "$lib/${report[0]}" "$results" "${report[1]}" | tee "build/bench/$what.md"
