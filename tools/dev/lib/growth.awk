# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# awk -f measured.awk -f growth.awk <output of benchmarks> <growth.txt>: a table of times, of the power of the size by
# which they grow (least squares of the logarithms, from a quarter of the largest size on), and of the sizes at which
# that power comes to a second and to ten.

function seconds(ms) {
    return ms < 1000 ? shortened(ms) " ms" : shortened(ms / 1000) " s"
}

# Two digits.
function rounded(size,    scale) {
    scale = 10 ^ (int(log(size) / log(10)) - 1)
    return sprintf("%.0f", int(size / scale + 0.5) * scale)
}

# The sizes and times of a benchmark, in the order of measuring.
function collect(benchmark, argument,    i, part) {
    points = 0
    for (i = 1; i <= values; i++)
        if (split(order[i], part, "/") > argument && part[1] == benchmark) {
            size[++points] = part[argument + 1]
            time[points] = value[order[i]]
        }
}

# time = factor * size ^ power
function fit(    i, n, x, y, sx, sy, sxx, sxy) {
    for (i = 1; i <= points; i++)
        if (size[i] >= size[points] / 4) {
            x = log(size[i]); y = log(time[i])
            n++; sx += x; sy += y; sxx += x * x; sxy += x * y
        }
    power = (n * sxy - sx * sy) / (n * sxx - sx * sx)
    factor = exp((sy - power * sx) / n)
}

function sizeFor(ms) {
    return rounded((ms / factor) ^ (1 / power))
}

file == 2 && !header {
    header = 1
    print "| work | size: time | grows by the power | 1 s at | 10 s at |"
    print "|---|---|--:|--:|--:|"
}

file == 2 && !/^#/ && NF {
    split($0, field, "|")
    collect(trim(field[2]), field[3] + 0)
    if (points < 2)
        next
    fit()
    list = ""
    for (i = 1; i <= points; i++)
        list = list (i > 1 ? ", " : "") size[i] ": " seconds(time[i])
    printf "| %s | %s | %.1f | %s | %s |\n", trim(field[1]), list, power, sizeFor(1000), sizeFor(10000)
}
