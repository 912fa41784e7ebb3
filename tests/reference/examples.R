# Writes examples.csv: what R gives for the example files, where its formulas are the program's.
# Run it in this folder: R --vanilla --quiet < examples.R
options(digits = 17, warn = -1)

rows <- list()
note <- function(file, test, options, result, value) {
  rows[[length(rows) + 1]] <<- data.frame(file, test, options, result, value = sprintf("%.17g", value))
}
columns <- function(file) as.list(read.csv(file.path("../../examples", file)))
present <- function(column) column[!is.na(column)]

tails <- c("--tails two" = "two.sided", "--tails greater" = "greater", "--tails less" = "less")

for (file in c("permeability.csv", "plants.csv")) {
  data <- lapply(columns(file), present)
  n <- lengths(data)
  W <- unname(wilcox.test(data[[1]], data[[2]])$statistic)
  U <- c(max(W, n[[1]] * n[[2]] - W), W, n[[1]] * n[[2]] - W)
  for (i in 1:3) {
    p <- wilcox.test(data[[1]], data[[2]], alternative = tails[[i]], exact = TRUE, correct = FALSE)$p.value
    note(file, "mann-whitney", names(tails)[i], "u", U[i])
    note(file, "mann-whitney", names(tails)[i], "p", p)
  }
}

ozone <- lapply(columns("ozone.csv"), present)
W <- unname(wilcox.test(ozone[[1]], ozone[[2]])$statistic)
note("ozone.csv", "mann-whitney", "", "u", max(W, prod(lengths(ozone)) - W))

pairs <- columns("depression.csv")
for (i in 1:3) {
  test <- wilcox.test(pairs[[1]], pairs[[2]], paired = TRUE, alternative = tails[[i]], exact = TRUE)
  note("depression.csv", "wilcoxon", names(tails)[i], "p", test$p.value)
}
note("depression.csv", "wilcoxon", "", "t", min(test$statistic, 45 - test$statistic))

tuna <- columns("tuna.csv")
note("tuna.csv", "spearman", "", "rs", unname(cor.test(tuna[[1]], tuna[[2]], method = "spearman")$estimate))

maize <- columns("maize.csv")
crossed <- sum(maize[[1]] > maize[[2]])
for (file in c("maize.csv", "maize_signs.csv")) {
  note(file, "sign", "", "positive", crossed)
  note(file, "sign", "", "p", binom.test(crossed, 15)$p.value)
  note(file, "sign", "--tails greater", "p", binom.test(crossed, 15, alternative = "greater")$p.value)
}

median_test <- function(file, options, data) {
  values <- unlist(data)
  M <- median(values)
  counts <- sapply(data, function(group) c(sum(group > M), sum(group <= M)))
  pearson <- chisq.test(counts, correct = FALSE)
  expected <- pearson$expected
  G <- 2 * sum(ifelse(counts == 0, 0, counts * log(counts / expected)))
  df <- unname(pearson$parameter)
  note(file, "median", options, "grandMedian", M)
  note(file, "median", options, "chiSquare", unname(pearson$statistic))
  note(file, "median", options, "p", pearson$p.value)
  note(file, "median", options, "logLikelihood", G)
  note(file, "median", options, "logLikelihoodP", pchisq(G, df, lower.tail = FALSE))
  if (df == 1) {
    yates <- chisq.test(counts, correct = TRUE)
    note(file, "median", options, "yates", unname(yates$statistic))
    note(file, "median", options, "yatesP", yates$p.value)
  }
}
sprays <- columns("sprays.csv")
median_test("sprays.csv", "", sprays)
median_test("sprays.csv", "--y A:B", sprays[1:2])
median_test("sprays.csv", "--y A:C", sprays[1:3])

rounding <- as.matrix(as.data.frame(columns("rounding.csv")))
test <- friedman.test(rounding)
note("rounding.csv", "friedman", "", "chiSquare", unname(test$statistic))
note("rounding.csv", "friedman", "", "p", test$p.value)

chicks <- lapply(columns("chicks.csv"), present)
test <- kruskal.test(chicks)
N <- sum(lengths(chicks)); k <- length(chicks); H <- unname(test$statistic)
F <- (N - k) * H / ((N - H - 1) * (k - 1))
note("chicks.csv", "kruskal-wallis", "", "chiSquare", H)
note("chicks.csv", "kruskal-wallis", "", "p", test$p.value)
note("chicks.csv", "kruskal-wallis", "", "f", F)
# The program's second degrees of freedom are N - k - 1.
note("chicks.csv", "kruskal-wallis", "", "fP", pf(F, k - 1, N - k - 1, lower.tail = FALSE))

runs <- function(file, options, sides) {
  n <- as.numeric(table(sides)); N <- sum(n); observed <- length(rle(as.character(sides))$lengths)
  E <- 1 + 2 * prod(n) / N
  V <- 2 * prod(n) * (2 * prod(n) - N) / (N^2 * (N - 1))
  z <- (abs(observed - E) - 0.5) / sqrt(V)
  note(file, "runs", options, "runs", observed)
  note(file, "runs", options, "expected", E)
  note(file, "runs", options, "z", z)
  # The other tail is formed as 1 - Phi(z) and keeps few digits this far out.
  note(file, "runs", trimws(paste(options, "--tails more")), "p", pnorm(z))
}
runs("huron.csv", "", columns("huron.csv")[[1]])
level <- columns("lake_levels.csv")[[2]]
runs("lake_levels.csv", "--y Level --cut median", level > median(level))
runs("lake_levels.csv", "--y Level --cut mean", level > mean(level))
runs("lake_levels.csv", "--y Level --cut 580.38", (level > 580.38)[level != 580.38])
runs("lake_levels.csv", "--y Level --cut 580.38 --cut-equal above", level >= 580.38)
runs("lake_levels.csv", "--y Level --cut 580.38 --cut-equal below", level > 580.38)

write.csv(do.call(rbind, rows), "examples.csv", row.names = FALSE, quote = TRUE)
