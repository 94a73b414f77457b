# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# awk -f measured.awk -f ratios.awk <output of benchmarks> <goals>: a table of medians, ratios and goals.

# The value of "name", or of the counter in "name:counter".
function measured(name) {
    return name in value ? value[name] : ""
}

function row(work, fast, plain, result, goal, held) {
    printf "| %s | %s | %s | %s | %s | %s |\n", work, fast, plain, result, goal, held
}

file == 1 && /^plain forms: / { plainForms = $0 }

file == 2 && !header {
    header = 1
    if (plainForms)
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
            sprintf("1/%.1f", ratio), "1/" goal, ratio >= limit ? "yes" : "no")
    } else if (plain == "-" && goal == "-") {
        row(work, shortened(number) (fast ~ /:/ ? " " substr(fast, index(fast, ":") + 1) : " ms"))
    } else if (plain == "-") {
        unit = goal
        sub(/^[0-9.]+/, "", unit)
        row(work, shortened(number) unit, "", "", "at most " goal, number + 0 <= limit ? "yes" : "no")
    }
}
