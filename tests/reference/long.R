# Writes long.csv: figures of 10,000 values and more that R's own tests give, or a few lines of R.
# Run it in this folder: R --vanilla --quiet < long.R   (R 4.2.2, coin 1.4-2)
#
# groups: one sample a bar, as length:seed:of:shift. Its values are x %% of + shift, where each x is the one before it
# times 16,807, modulo 2^31 - 1, from the seed on (Park and Miller 1988): whole numbers that doubles hold, so that any
# language makes the same ones. A row without a test goes on with the case above it. "null": there is no such figure.
suppressMessages(library(coin))
options(digits = 17)

rows <- list()
begun <- ""
note <- function(figure, value) {
  shown <- if (is.null(value) || is.na(value)) "null" else if (is.character(value)) value else sprintf("%.17g", value)
  rows[[length(rows) + 1]] <<- paste(if (begun == "") ",," else begun, figure, shown, sep = ",")
  begun <<- ""
}
interval <- function(figure, limits) {
  note(paste0(figure, ".low"), limits[1])
  note(paste0(figure, ".high"), limits[2])
}
directions <- function(figure, p) for (d in names(p)) note(paste0(figure, ".", d, ".value"), p[[d]])
alternatives <- c(two = "two.sided", greater = "greater", less = "less")
root <- function(f, a, b) uniroot(f, c(a, b), tol = 1e-15, maxiter = 10000)$root

sample_of <- function(text) {
  asked <- as.numeric(strsplit(text, ":")[[1]])
  x <- asked[2]
  values <- numeric(asked[1])
  for (i in seq_along(values)) {
    x <- (16807 * x) %% 2147483647
    values[i] <- x %% asked[3] + asked[4]
  }
  values
}
case <- function(test, texts, level) {
  begun <<- paste(test, paste(texts, collapse = "|"), level, sep = ",")
  lapply(texts, sample_of)
}
median_interval <- function(x, level, figure) {
  n <- length(x)
  x <- sort(x)
  k <- sum(pbinom(0:n, n, 0.5) <= (1 - level) / 2)
  note(paste0(figure, ".value"), median(x))
  interval(figure, x[c(k, n + 1 - k)])
  note(paste0(figure, ".attained"), 1 - 2 * pbinom(k - 1, n, 0.5))
}

mann_whitney <- function(first, second, level = 0.95) {
  samples <- case("mann-whitney", c(first, second), level)
  x <- samples[[1]]; y <- samples[[2]]
  n1 <- length(x); n2 <- length(y); N <- n1 + n2
  test <- function(...) wilcox.test(x, y, exact = FALSE, ...)
  U <- unname(test()$statistic)
  known <- sort(unique(c(x, y)))
  equal <- sum(as.numeric(table(factor(x, known))) * as.numeric(table(factor(y, known))))
  ties <- table(c(x, y)); ties <- as.numeric(ties[ties > 1])
  C <- 1 - sum(ties^3 - ties) / (N^3 - N)
  note("statistic.u.1", U)
  note("data.pairs.greater", U - equal / 2)
  note("data.pairs.equal", equal)
  note("data.ties.groups", length(ties))
  note("data.ties.sum", sum(ties^3 - ties))
  note("p.exact", NA)
  frame <- data.frame(v = c(x, y), g = factor(rep(c("a", "b"), c(n1, n2))))
  note("p.normal.z", as.numeric(statistic(wilcox_test(v ~ g, frame, distribution = "asymptotic"))))
  for (corrected in c(FALSE, TRUE))
    directions(if (corrected) "p.normal.corrected" else "p.normal",
               lapply(alternatives, function(a) test(correct = corrected, alternative = a)$p.value))
  A <- U / (n1 * n2)
  z <- qnorm((1 + level) / 2)
  s <- N / 2 - 1
  V <- function(t) C * t * (1 - t) * (1 + s * (1 - t) / (2 - t) + s * t / (1 + t)) / (n1 * n2)
  f <- function(t) (A - t)^2 - z^2 * V(t)
  note("effect.superiority.value", A)
  interval("effect.superiority", c(root(f, 0, A), root(f, A, 1)))
  note("effect.rankBiserial.value", 2 * A - 1)
  note("groups.1.meanRank", mean(rank(c(x, y))[1:n1]))
  median_interval(x, level, "groups.1.median")
  median_interval(y, level, "groups.2.median")
}

wilcoxon <- function(first, second, level = 0.95) {
  samples <- case("wilcoxon", c(first, second), level)
  d <- samples[[1]] - samples[[2]]
  note("data.positive", sum(d > 0))
  note("data.zero", sum(d == 0))
  note("data.negative", sum(d < 0))
  paired <- data.frame(d = d, o = 0)
  for (zeros in c("Wilcoxon", if (any(d == 0)) "Pratt")) {
    name <- if (zeros == "Wilcoxon") "p.zerosLeftOut" else "p.pratt"
    r <- rank(abs(if (zeros == "Pratt") d else d[d != 0]))
    note(paste0(name, ".plus"), sum(r[(if (zeros == "Pratt") d else d[d != 0]) > 0]))
    note(paste0(name, ".exact"), NA)
    # Its probability of a large z is 1 less the rest, which leaves few digits.
    test <- wilcoxsign_test(d ~ o, paired, zero.method = zeros, distribution = "asymptotic")
    z <- as.numeric(statistic(test))
    note(paste0(name, ".normal.z"), z)
    directions(paste0(name, ".normal"), list(two = 2 * pnorm(-abs(z)), greater = pnorm(-z), less = pnorm(z)))
    if (zeros == "Wilcoxon") directions(paste0(name, ".normal.corrected"), lapply(alternatives, function(a)
      suppressWarnings(wilcox.test(d, exact = FALSE, correct = TRUE, alternative = a)$p.value)))
  }
  r <- rank(abs(d[d != 0]))
  b <- sum(r * sign(d[d != 0])) / sum(r)
  v <- sum(r^2) / sum(r)^2
  f <- function(t) (b - t)^2 - qnorm((1 + level) / 2)^2 * v * (1 - t^2)
  note("effect.rankBiserial.value", b)
  interval("effect.rankBiserial", c(root(f, -1, b), root(f, b, 1)))
  median_interval(samples[[1]], level, "groups.1.median")
}

spearman <- function(first, second, level = 0.95) {
  samples <- case("spearman", c(first, second), level)
  x <- samples[[1]]; y <- samples[[2]]
  test <- function(a) cor.test(x, y, method = "spearman", exact = FALSE, alternative = a)
  rho <- unname(test("two.sided")$estimate)
  note("effect.rho.value", rho)
  note("p.exact", NA)
  note("p.series", NA)
  directions("p.t", lapply(alternatives, function(a) test(a)$p.value))
  note("p.t.t", rho * sqrt((length(x) - 2) / (1 - rho^2)))
  interval("effect.rho",
           tanh(atanh(rho) + c(-1, 1) * qnorm((1 + level) / 2) * sqrt((1 + rho^2 / 2) / (length(x) - 3))))
}

sign_test <- function(first, second, level = 0.95) {
  samples <- case("sign", c(first, second), level)
  d <- samples[[1]] - samples[[2]]
  k <- sum(d > 0); m <- sum(d != 0)
  note("data.zero", sum(d == 0))
  directions("p.exact", lapply(alternatives, function(a) binom.test(k, m, alternative = a)$p.value))
  note("p.exact.point", dbinom(k, m, 0.5))
  note("p.normal.z", (k - m / 2) / sqrt(m / 4))
  note("p.normal.corrected.greater.value", pnorm((k - m / 2 - 0.5) / sqrt(m / 4), lower.tail = FALSE))
  note("p.normal.corrected.less.value", pnorm((k - m / 2 + 0.5) / sqrt(m / 4)))
  note("effect.positiveShare.value", k / m)
  interval("effect.positiveShare", binom.test(k, m, conf.level = level)$conf.int)
  median_interval(d, level, "effect.medianDifference")
}

# The noncentrality at which a statistic as small has this chance.
noncentrality <- function(chance, p) if (p(0) <= chance) 0 else {
  above <- 1
  while (p(above) > chance) above <- above * 2
  root(function(l) p(l) - chance, 0, above)
}
limits_of <- function(level, p) c(noncentrality((1 + level) / 2, p), noncentrality((1 - level) / 2, p))
adjusted <- function(p) for (i in seq_along(p)) {
  note(paste0("comparisons.", i, ".p.value"), p[i])
  note(paste0("comparisons.", i, ".adjusted.value"), p.adjust(p, "holm")[i])
}

median_test <- function(texts, level = 0.95) {
  groups <- case("median", texts, level)
  n <- lengths(groups)
  M <- median(unlist(groups))
  a <- sapply(groups, function(g) sum(g > M))
  note("data.grandMedian", M)
  note("data.equal", sum(unlist(groups) == M))
  test <- chisq.test(rbind(a, n - a), correct = FALSE)
  X <- unname(test$statistic)
  note("p.chiSquare.value", X)
  note("p.chiSquare.p.value", test$p.value)
  note("effect.cramerV.value", sqrt(X / sum(n)))
  interval("effect.cramerV", sqrt(limits_of(level, function(l) pchisq(X, length(n) - 1, l)) / sum(n)))
  for (g in seq_along(groups)) {
    note(paste0("groups.", g, ".above"), a[g])
    interval(paste0("groups.", g, ".share"), binom.test(a[g], n[g], conf.level = level)$conf.int)
  }
  median_interval(groups[[1]], level, "groups.1.median")
}

kruskal_wallis <- function(texts, level = 0.95) {
  groups <- case("kruskal-wallis", texts, level)
  n <- lengths(groups); k <- length(n); N <- sum(n)
  g <- factor(rep(1:k, n))
  r <- rank(unlist(groups))
  for (i in 1:k) note(paste0("groups.", i, ".meanRank"), mean(r[g == i]))
  fit <- kruskal.test(unlist(groups), g)
  H <- unname(fit$statistic)
  note("p.exact", NA)
  note("p.chiSquare.value", H)
  note("p.chiSquare.p.value", fit$p.value)
  note("p.f.value", anova(lm(r ~ g))[["F value"]][1])
  F <- H / (k - 1) / ((N - 1 - H) / (N - k))  # its own P multiplies what the regression rounds
  note("p.f.p.value", pf(F, k - 1, N - k, lower.tail = FALSE))
  note("effect.epsilonSquared.value", H / (N - 1))
  l <- limits_of(level, function(l) pf(F, k - 1, N - k, l))
  interval("effect.epsilonSquared", l / (l + N))
  pairs <- combn(k, 2)
  z <- apply(pairs, 2, function(i) (mean(r[g == i[1]]) - mean(r[g == i[2]])) / sqrt(var(r) * sum(1 / n[i])))
  for (i in seq_along(z)) {
    note(paste0("comparisons.", i, ".z"), z[i])
    x <- groups[[pairs[1, i]]]; y <- groups[[pairs[2, i]]]
    note(paste0("comparisons.", i, ".superiority"),
         unname(wilcox.test(x, y, exact = FALSE)$statistic) / length(x) / length(y))
  }
  adjusted(2 * pnorm(-abs(z)))
  median_interval(groups[[k]], level, paste0("groups.", k, ".median"))
}

friedman <- function(texts, level = 0.95) {
  groups <- case("friedman", texts, level)
  m <- do.call(cbind, groups)
  b <- nrow(m); k <- ncol(m)
  R <- t(apply(m, 1, rank))
  fit <- friedman.test(m)
  X <- unname(fit$statistic)
  W <- X / (b * (k - 1))
  note("data.blocks", b)
  for (i in 1:k) note(paste0("groups.", i, ".meanRank"), mean(R[, i]))
  note("p.exact", NA)
  note("p.chiSquare.value", X)
  note("p.chiSquare.p.value", fit$p.value)
  F <- (b - 1) * W / (1 - W)
  note("p.f.value", F)
  note("p.f.p.value", pf(F, k - 1, (b - 1) * (k - 1), lower.tail = FALSE))
  note("effect.kendallW.value", W)
  # W without each block in turn; friedman.test says the same of the first.
  ties <- apply(R, 1, function(x) sum(table(x)^3 - table(x)))
  without <- sweep(-R, 2, colSums(R), "+") - (b - 1) * (k + 1) / 2
  Ws <- 12 * rowSums(without^2) / ((b - 1)^2 * (k^3 - k) * (1 - (sum(ties) - ties) / ((b - 1) * (k^3 - k))))
  stopifnot(all.equal(Ws[1], unname(friedman.test(m[-1, ])$statistic) / ((b - 1) * (k - 1)), tolerance = 1e-13))
  logit <- function(w) qlogis(pmin(pmax(w, 0.001), 0.999))
  pseudo <- b * logit(W) - (b - 1) * logit(Ws)
  jack <- plogis(logit(W) + c(-1, 1) * qt((1 + level) / 2, b - 1) * sd(pseudo) / sqrt(b))
  l <- limits_of(level, function(l) pf(F, k - 1, (b - 1) * (k - 1), l))
  f <- l / (l + b * (k - 1))
  interval("effect.kendallW", c(min(f[1], jack[1]), max(f[2], jack[2])))
  C <- 1 - sum(ties) / (b * (k^3 - k))
  note("data.ties.factor", C)
  pairs <- combn(k, 2)
  z <- apply(pairs, 2, function(i) (sum(R[, i[1]]) - sum(R[, i[2]])) / sqrt(b * k * (k + 1) * C / 6))
  for (i in seq_along(z)) {
    note(paste0("comparisons.", i, ".z"), z[i])
    note(paste0("comparisons.", i, ".blocks.greater"), sum(m[, pairs[1, i]] > m[, pairs[2, i]]))
    note(paste0("comparisons.", i, ".blocks.equal"), sum(m[, pairs[1, i]] == m[, pairs[2, i]]))
  }
  adjusted(2 * pnorm(-abs(z)))
  median_interval(groups[[1]], level, "groups.1.median")
}

# Without ties, with few, and with many.
mann_whitney("10000:1:2147483647:0", "10000:20011:2147483647:30000000")
mann_whitney("10000:7:50:0", "10000:99991:48:2", 0.99)
mann_whitney("3000:3:5:0", "7000:31337:5:0", 0.8)
wilcoxon("10000:1:4999999:100000", "10000:20011:4999999:0")
wilcoxon("10000:7:60:0", "10000:7:40:10", 0.99)
wilcoxon("10000:11:6:0", "10000:4242:6:0", 0.9)
spearman("10000:1:2147483647:0", "10000:20011:2147483647:0")
spearman("10000:7:60:0", "10000:7:40:0", 0.99)
spearman("10000:11:6:0", "10000:4242:7:0")
sign_test("10000:1:4999999:100000", "10000:20011:4999999:0")
sign_test("10000:7:60:0", "10000:4242:60:1", 0.9)
median_test(c("5000:1:2147483647:0", "5000:20011:2147483647:50000000"))
median_test(c("2000:7:50:0", "3000:99991:50:1", "5000:31337:50:0"), 0.99)
kruskal_wallis(c("2000:7:2147483647:0", "3000:99991:2147483647:20000000", "5000:31337:2147483647:0"))
kruskal_wallis(c("2500:7:5:0", "2500:99991:5:0", "2500:31337:6:0", "2500:4242:5:0"), 0.9)
friedman(c("10000:1:2147483647:0", "10000:20011:2147483647:9000000", "10000:31337:2147483647:0"))
friedman(c("2500:7:5:0", "2500:99991:5:0", "2500:31337:6:0", "2500:4242:5:0"), 0.99)

writeLines(c("test,groups,level,figure,value", unlist(rows)), "long.csv")
