# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# What benchmarks have printed, for ratios.awk and growth.awk: value[name] in milliseconds and value["name:counter"].

function trim(text) {
    gsub(/^[ \t]+|[ \t]+$/, "", text)
    return text
}

function milliseconds(number, unit) {
    if (unit == "ns") return number / 1e6
    if (unit == "us") return number / 1e3
    if (unit == "s") return number * 1e3
    return number
}

# Three digits, or all before the point.
function shortened(number) {
    return sprintf(number < 1000 ? "%.3g" : "%.0f", number)
}

FNR == 1 { file++ }

# name, wall time, unit, processor time, unit, repetitions, counter=value...
# What is repeated has a median; what measures its time itself has it in the first place.
file == 1 && $5 ~ /^(ns|us|ms|s)$/ && $1 !~ /_(mean|stddev|cv)$/ {
    name = $1
    sub(/_median$/, "", name)
    gsub(/\/(iterations|repeats):[0-9]+/, "", name)
    if (sub(/\/manual_time/, "", name))
        value[name] = milliseconds($2, $3)
    else
        value[name] = milliseconds($4, $5)
    order[++values] = name
    for (i = 7; i <= NF; i++) {
        split($i, part, "=")
        value[name ":" part[1]] = part[2]
    }
}
