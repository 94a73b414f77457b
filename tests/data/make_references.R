# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Writes the references in this folder: what R makes of the samples in data/. Run it from this folder:
#
#     Rscript make_references.R
#
# The signs and the order of rotated factors are arbitrary. Here the columns are sorted by their sums of
# squares, largest first, and each is reflected so that its loadings add up to a positive number.

is_data <- function(lines) grepl("^[-+.0-9 \t]+$", lines)

read_table <- function(path) {
    lines <- readLines(path)
    as.matrix(read.table(text = lines[is_data(lines)]))
}

read_lower_triangle <- function(path) {
    lines <- readLines(path)
    rows <- lapply(strsplit(trimws(lines[is_data(lines)]), "[ \t]+"), as.numeric)
    matrix <- diag(length(rows))
    for (i in seq_along(rows)) {
        matrix[i, seq_len(i)] <- rows[[i]]
        matrix[seq_len(i), i] <- rows[[i]]
    }
    matrix
}

initial_loadings <- function(correlations, factors) {
    pairs <- eigen(correlations, symmetric = TRUE)
    sweep(pairs$vectors[, seq_len(factors)], 2, sqrt(pairs$values[seq_len(factors)]), "*")
}

arranged <- function(loadings) {
    loadings <- loadings[, order(-colSums(loadings^2))]
    sweep(loadings, 2, sign(colSums(loadings)), "*")
}

write_reference <- function(values, sample, subject, what) {
    head <- c(paste0("# ", what),
              paste0("# Source: data/", sample$file, "; ", R.version.string, "; made by make_references.R"))
    values <- as.matrix(values)
    values[abs(values) < 5e-13] <- 0
    rows <- apply(values, 1, function(row) paste(sprintf("%16.12f", row), collapse = " "))
    out <- file(paste0(sample$name, ".", subject, ".txt"), "wb")
    writeLines(c(head, rows), out)
    close(out)
}

write_references <- function(sample, correlations) {
    write_reference(eigen(correlations, symmetric = TRUE)$values, sample, "eigenvalues",
                    "eigen(R, symmetric = TRUE)$values, R the correlations")
    m <- sample$factors
    initial <- initial_loadings(correlations, m)
    rotated <- arranged(unclass(varimax(initial, normalize = FALSE, eps = 1e-15)$loadings))
    write_reference(arranged(initial), sample, paste0("initial-", m),
                    paste("loadings of the first", m, "principal components"))
    write_reference(rotated, sample, paste0("varimax-", m),
                    paste("varimax(L, normalize = FALSE, eps = 1e-15)$loadings, L the loadings of the first", m,
                          "principal components"))
    write_reference(colSums(rotated^2), sample, paste0("varimax-", m, "-squares"),
                    "sums of the squared loadings, column by column")
}

boxes <- list(file = "box-problem.txt", name = "box-problem", factors = 3)
box_correlations <- cor(read_table(file.path("../../data", boxes$file)))
write_reference(box_correlations, boxes, "correlations", "cor(X), X the raw data")
write_references(boxes, box_correlations)

tests <- list(file = "harman-24-psychological-tests.cor", name = "harman-24", factors = 4)
write_references(tests, read_lower_triangle(file.path("../../data", tests$file)))
