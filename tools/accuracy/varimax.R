# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Rotates the loadings of every *.loadings in a folder by R's raw Varimax, as *.varimax beside it.
#
# usage: Rscript varimax.R FOLDER

for (file in list.files(commandArgs(TRUE)[1], "[.]loadings$", full.names = TRUE)) {
    loadings <- as.matrix(read.table(file))
    rotated <- unclass(varimax(loadings, normalize = FALSE, eps = 1e-15)$loadings)
    lines <- apply(rotated, 1, function(row) paste(sprintf("%.17g", row), collapse = " "))
    writeLines(lines, sub("[.]loadings$", ".varimax", file))
}
