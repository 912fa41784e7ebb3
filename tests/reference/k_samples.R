# Writes k_samples.csv: Kruskal-Wallis and Friedman figures for small and tied samples.
# Run it in this folder: R --vanilla --quiet < k_samples.R
#
# groups: one group per column, its values separated by blanks, the groups by bars.
# The chi-square figures are those of kruskal.test and friedman.test. The F figures are written out here: that
# of Kruskal-Wallis comes from the statistic corrected for ties and has N - k - 1 second degrees of freedom,
# that of Friedman comes from the statistic that is not corrected.
options(digits = 17)

rows <- list()
note <- function(test, groups, result, value) {
  text <- paste(sapply(groups, function(group) paste(sprintf("%.17g", group), collapse = " ")), collapse = "|")
  rows[[length(rows) + 1]] <<- data.frame(test, groups = text, result, value = sprintf("%.17g", value))
}

kruskal <- function(groups) {
  fit <- kruskal.test(groups)
  H <- unname(fit$statistic)
  N <- length(unlist(groups))
  k <- length(groups)
  F <- (N - k) * H / ((N - 1 - H) * (k - 1))
  note("kruskal-wallis", groups, "chi_square", H)
  note("kruskal-wallis", groups, "p", fit$p.value)
  note("kruskal-wallis", groups, "f", F)
  note("kruskal-wallis", groups, "f_p", pf(F, k - 1, N - k - 1, lower.tail = FALSE))
}

friedman <- function(groups) {
  blocks <- do.call(cbind, groups)
  fit <- friedman.test(blocks)
  b <- nrow(blocks)
  k <- ncol(blocks)
  R <- colSums(t(apply(blocks, 1, rank)))
  X <- sum((R - b * (k + 1) / 2)^2) * 12 / (k * b * (k + 1))
  F <- (b - 1) * X / ((k - 1) * b - X)
  note("friedman", groups, "chi_square", unname(fit$statistic))
  note("friedman", groups, "p", fit$p.value)
  note("friedman", groups, "f", F)
  note("friedman", groups, "f_p", pf(F, k - 1, (k - 1) * (b - 1), lower.tail = FALSE))
}

kruskal(list(1:3, 4:6, 7:9))
kruskal(list(c(1, 1, 2), c(1, 3, 4), c(2, 2, 2, 9)))
kruskal(list(c(-3, 0, 2.5, 8), c(-7.25, 1e3)))
kruskal(list(c(27, 2, 4, 18, 7, 9), c(20, 8, 14, 36, 21, 22), c(34, 31, 3, 23, 30, 6)))
kruskal(list(5, c(6, 7), c(1, 2, 3, 4), c(8, 8, 8, 8, 8)))
set.seed(20)
kruskal(replicate(6, round(rnorm(12, 50, 10)), simplify = FALSE))
kruskal(list(rnorm(40), rnorm(25, 0.5), rnorm(31, -0.25)))

friedman(list(c(1, 1, 1, 2), c(2, 2, 2, 1), c(3, 3, 3, 3)))
friedman(list(c(5, 3, 4, 4, 2), c(5, 3, 6, 4, 7), c(6, 2, 4, 5, 7), c(1, 2, 4, 8, 0)))
friedman(list(c(-1, 0), c(-1, 4)))
friedman(list(c(1, 2, 2, 4), c(2, 1, 2, 3)))
friedman(replicate(5, round(rnorm(15, 20, 3)), simplify = FALSE))
friedman(replicate(3, rnorm(30), simplify = FALSE))

write.csv(do.call(rbind, rows), "k_samples.csv", row.names = FALSE, quote = FALSE)
