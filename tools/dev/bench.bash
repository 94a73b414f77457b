# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Measures how fast the computations are, beside their plain forms and their goals.
#
# usage: ./dev bench [pattern]
#
# Runs the benchmarks (those whose names match the regular expression) on one core, five times each (some that take long
# less often), and prints the ratios of the medians beside the goals of bench/goals.txt. Leave the machine alone
# meanwhile. The table is also left in build/bench/table.md.

need build bench
build bench
results=build/bench/results.txt
: >"$results"
log=build/bench/errors.txt
for program in build/bench/bench/bench_*; do
    [ -f "$program" ] || continue # other targets leave folders
    say "$(basename "$program")"
    QT_QPA_PLATFORM=offscreen taskset -c 0 "$program" --benchmark_filter="${1:-.*}" \
        --benchmark_repetitions=5 --benchmark_report_aggregates_only=true 2>"$log" |
        tee -a "$results" || {
        cat "$log" >&2
        exit 1
    }
done
say "Ratios"
awk -f tools/dev/lib/ratios.awk "$results" bench/goals.txt | tee build/bench/table.md
