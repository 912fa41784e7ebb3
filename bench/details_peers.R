# Rscript details_peers.R   what R's packages take for figures that details have: a name, package, seconds, megabytes.
suppressMessages({library(coin); library(exactRankTests); library(effectsize)})
set.seed(20260101)

tell <- function(name, package, action) {
  invisible(gc(reset = TRUE))
  before <- sum(gc()[, 6])
  seconds <- min(replicate(2, sum(system.time(action())[c("user.self", "sys.self")])))
  cat(name, package, seconds, sum(gc()[, 6]) - before, sep = "\t")
  cat("\n")
}
often <- function(name, package, action, times = 200) {
  action()
  cat(name, package, sum(system.time(for (i in seq_len(times)) action())[c("user.self", "sys.self")]) / times, 0, sep = "\t")
  cat("\n")
}

x <- rnorm(5000, 50, 10)
y <- rnorm(5000, 50, 10)
tell("shift with interval, 5,000 x 5,000", "R", function() wilcox.test(x, y, conf.int = TRUE))
tell("pseudomedian with interval, 5,000", "R", function() wilcox.test(x, conf.int = TRUE, mu = 40))

a <- sample(1:5, 118, TRUE)
b <- sample(1:5, 118, TRUE)
both <- data.frame(value = c(a, b), group = factor(rep(1:2, each = 118)))
tell("exact mann-whitney, five levels, 118 + 118", "coin",
     function() pvalue(wilcox_test(value ~ group, both, distribution = "exact")))
tell("exact mann-whitney, five levels, 118 + 118", "exactRankTests", function() wilcox.exact(a, b, exact = TRUE))
before <- sample(1:2000, 999, TRUE)
after <- sample(1:2000, 999, TRUE)
tell("exact wilcoxon with ties, 999", "exactRankTests", function() wilcox.exact(before, after, paired = TRUE, exact = TRUE))

s <- split(rnorm(30, 50, 10), rep(1:3, 10))
long <- data.frame(value = unlist(s), group = factor(rep(1:3, each = 10)), block = factor(rep(1:10, 3)))
often("mann-whitney, 10 rows", "effectsize", function() rank_biserial(s[[1]], s[[2]]))
often("wilcoxon, 10 rows", "effectsize", function() rank_biserial(s[[1]], s[[2]], paired = TRUE))
often("kruskal-wallis, 10 rows", "effectsize", function() rank_epsilon_squared(value ~ group, data = long), 2)
often("friedman, 10 rows", "effectsize", function() kendalls_w(value ~ group | block, data = long), 2)

large <- list()
for (g in 1:5) large[[g]] <- sample(200000, 200000, TRUE)
tell("kruskal-wallis, 5 x 200,000", "R", function() kruskal.test(large))
