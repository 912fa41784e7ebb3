#!/usr/bin/env Rscript
# Figures of R 4.2 where its formulas are those of the engine: run it in this directory.
#
# Writes two_sample.csv: the test, the alternative (two, greater, less), both samples, the statistic and P.
#   mann-whitney  wilcox.test(exact = TRUE), no ties; above 50,000 pairs wilcox.test(exact = FALSE,
#                 correct = TRUE), one-tailed only in the direction that the data lean to. The statistic is
#                 the U that speaks for the alternative.
#   wilcoxon      wilcox.test(paired = TRUE), zero differences left out; up to 50 pairs exact, above
#                 exact = FALSE, correct = FALSE. The statistic is T or |Z|.
#   spearman      cor.test(method = "spearman", exact = TRUE), at most 7 pairs without ties.
#   sign          binom.test, two-sided and in the direction that the data lean to. The statistic is the
#                 number of positive differences.
options(digits = 17, warn = -1)
rows <- character()
add <- function(test, alternative, y, x, statistic, p) {
  number <- function(v) paste(format(v, digits = 17, trim = TRUE), collapse = " ")
  each <- function(v) paste(vapply(v, number, ""), collapse = " ")
  rows <<- c(rows, paste(test, alternative, each(y), each(x), number(statistic), number(p), sep = ","))
}
directions <- c(two = "two.sided", greater = "greater", less = "less")

mannWhitney <- function(y, x, exact, alternatives) {
  for (name in alternatives) {
    r <- wilcox.test(y, x, directions[[name]], exact = exact, correct = !exact)
    w <- unname(r$statistic)
    other <- length(y) * length(x) - w
    u <- switch(name, two = max(w, other), greater = w, less = other)
    add("mann-whitney", name, y, x, u, r$p.value)
  }
}
mannWhitney(c(1.83, 0.50, 1.62, 2.48, 1.68, 1.88, 1.55, 3.06, 1.30),
            c(0.878, 0.647, 0.598, 2.05, 1.06, 1.29, 1.061, 3.14, 1.291), TRUE, names(directions))
mannWhitney(c(0.80, 0.83, 1.89, 1.04, 1.45, 1.38, 1.91, 1.64, 0.73, 1.46),
            c(1.15, 0.88, 0.90, 0.74, 1.21), TRUE, names(directions))
mannWhitney(-3, c(5, 7, 9, 11), TRUE, names(directions))
mannWhitney((1:40 * 7919) %% 10007, (1:49 * 104729) %% 10009 + 2500, TRUE, names(directions))
y <- (1:250 * 7919) %% 1009
x <- (1:230 * 104729) %% 499 * 2 + 90
mannWhitney(y, x, FALSE, c("two", if (mean(rank(c(y, x))[1:250]) > 240.5) "greater" else "less"))
y <- (1:260 * 31) %% 17
x <- (1:240 * 47) %% 19
mannWhitney(y, x, FALSE, c("two", "less"))

wilcoxon <- function(y, x, exact) {
  d <- y - x
  ranks <- rank(abs(d[d != 0]))
  plus <- sum(ranks[d[d != 0] > 0])
  minus <- sum(ranks) - plus
  n <- length(ranks)
  ties <- table(ranks)
  sd <- sqrt(n * (n + 1) * (2 * n + 1) / 24 - sum(ties^3 - ties) / 48)
  for (name in names(directions)) {
    r <- wilcox.test(y, x, directions[[name]], paired = TRUE, exact = exact, correct = FALSE)
    t <- switch(name, two = min(plus, minus), greater = minus, less = plus)
    add("wilcoxon", name, y, x, if (exact) t else abs(t - n * (n + 1) / 4) / sd, r$p.value)
  }
}
wilcoxon(c(1.83, 0.50, 1.62, 2.48, 1.68, 1.88, 1.55, 3.06, 1.30),
         c(0.878, 0.647, 0.598, 2.05, 1.06, 1.29, 1.06, 3.14, 1.29), TRUE)
wilcoxon(c(125, 115, 130, 140, 141, 115, 142, 135), c(110, 122, 125, 120, 140, 127, 114, 112), TRUE)
i <- 1:50
wilcoxon(1000 + i * ifelse(i %% 3 == 0, -1, 1), rep(1000, 50), TRUE)
wilcoxon((1:60 * 37) %% 41, (1:60 * 23) %% 43, FALSE)
wilcoxon((1:200 * 89) %% 97 + 5, (1:200 * 71) %% 101, FALSE)

spearman <- function(y, x) {
  for (name in names(directions)) {
    r <- cor.test(y, x, alternative = directions[[name]], method = "spearman", exact = TRUE)
    add("spearman", name, y, x, unname(r$estimate), r$p.value)
  }
}
spearman(c(1, 2, 3, 4), c(2, 4, 6, 8))
spearman(c(1, 2, 3, 4, 5), c(2, 1, 4, 3, 5))
spearman(c(1, 2, 3, 4, 5, 6), c(1, 3, 2, 5, 4, 6))
spearman(c(1, 2, 3, 4, 5, 6), c(2, 1, 3, 6, 4, 5))
spearman(c(106, 86, 100, 101, 99, 103, 97), c(7, 1, 27, 50, 28, 29, 20))

sign <- function(y, x) {
  positive <- sum(y > x)
  negative <- sum(y < x)
  lean <- if (positive > negative) "greater" else "less"
  add("sign", "two", y, x, positive, binom.test(positive, positive + negative)$p.value)
  add("sign", lean, y, x, positive, binom.test(positive, positive + negative, 0.5, lean)$p.value)
}
sign(c(142, 140, 144, 144, 142, 146, 149, 150, 142, 148), c(138, 136, 147, 139, 143, 141, 143, 145, 136, 146))
sign(c(5, 6, 7), c(1, 2, 9))
sign(c(4, 4, 1, 2, 3, 9, 8), c(5, 4, 3, 4, 5, 1, 9))
sign((1:300 * 37) %% 41, (1:300 * 23) %% 61)

writeLines(c("test,alternative,ys,xs,statistic,p", rows), "two_sample.csv")
