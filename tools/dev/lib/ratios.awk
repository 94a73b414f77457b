# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# awk -f ratios.awk <output of benchmarks> <goals>: a table of medians, ratios and goals.

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

# The value of "name", or of the counter in "name:counter".
function measured(name) {
    return name in value ? value[name] : ""
}

function row(work, fast, plain, result, goal, held) {
    printf "| %s | %s | %s | %s | %s | %s |\n", work, fast, plain, result, goal, held ? "yes" : "no"
}

FNR == 1 { file++ }

file == 1 && /^plain forms: / { plainForms = $0 }

# name_median, wall time, unit, processor time, unit, repetitions, counter=value...
# What is measured once has no median, and what measures itself has its time in the first place.
file == 1 && $1 ~ /(_median|\/repeats:1)$/ {
    name = $1
    sub(/_median$/, "", name)
    sub(/\/repeats:[0-9]+/, "", name)
    if (sub(/\/manual_time/, "", name))
        value[name] = milliseconds($2, $3)
    else
        value[name] = milliseconds($4, $5)
    for (i = 7; i <= NF; i++) {
        split($i, part, "=")
        value[name ":" part[1]] = part[2]
    }
    next
}

file == 2 && !header {
    header = 1
    print plainForms "\n"
    print "| work | fast | plain | result | goal | reached |"
    print "|---|--:|--:|--:|--:|---|"
}

file == 2 && !/^#/ && NF {
    split($0, field, "|")
    work = trim(field[1]); fast = trim(field[2]); plain = trim(field[3]); goal = trim(field[4])
    if (measured(fast) == "")
        next
    number = measured(fast)
    limit = goal + 0
    if (plain != "-" && measured(plain) != "") {
        ratio = measured(plain) / number
        row(work, shortened(number) " ms", shortened(measured(plain)) " ms",
            sprintf("1/%.1f", ratio), "1/" goal, ratio >= limit)
    } else if (plain == "-") {
        unit = goal
        sub(/^[0-9.]+/, "", unit)
        row(work, shortened(number) unit, "", "", "at most " goal, number + 0 <= limit)
    }
}
