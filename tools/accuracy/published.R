# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Writes the correlations of published data that come with R as *.published into a folder.
#
# usage: Rscript published.R FOLDER

folder <- commandArgs(TRUE)[1]
correlations <- list(
    ability = cov2cor(ability.cov$cov),
    attitude = cor(attitude),
    Harman23 = Harman23.cor$cov,
    longley = cor(longley),
    mtcars = cor(mtcars),
    state.x77 = cor(state.x77),
    swiss = cor(swiss),
    USJudgeRatings = cor(USJudgeRatings))
for (name in names(correlations)) {
    r <- correlations[[name]]
    r[lower.tri(r)] <- t(r)[lower.tri(r)]
    diag(r) <- 1
    lines <- apply(r, 1, function(row) paste(sprintf("%.17g", row), collapse = " "))
    writeLines(lines, file.path(folder, paste0(name, ".published")))
}
