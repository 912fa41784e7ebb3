# Writes details.csv: every figure of the tests in full that R and its packages give, or that a few lines of R give by
# going through all arrangements or by solving an equation with uniroot.
# Run it in this folder: R --vanilla --quiet < details.R   (R 4.2.2, coin 1.4-2, multcompView 0.1-8)
#
# groups: one sample a list, its values separated by blanks, the lists by bars. A row without a test goes on with the
# case above it. "null": there is no such figure.
suppressMessages({library(coin); library(multcompView)})
options(digits = 17)

rows <- list()
begun <- ""
case <- function(test, groups, level = 0.95) {
  text <- paste(sapply(groups, function(g) paste(sprintf("%.17g", g), collapse = " ")), collapse = "|")
  begun <<- paste(test, text, level, sep = ",")
}
note <- function(figure, value) {
  shown <- if (is.null(value) || is.na(value)) "null" else if (is.character(value)) value else sprintf("%.17g", value)
  rows[[length(rows) + 1]] <<- paste(if (begun == "") ",," else begun, figure, shown, sep = ",")
  begun <<- ""
}
interval <- function(figure, limits) {
  note(paste0(figure, ".low"), limits[1])
  note(paste0(figure, ".high"), limits[2])
}
root <- function(f, a, b) uniroot(f, c(a, b), tol = 1e-14, maxiter = 10000)$root

# The median between order statistics; k of them from either end.
median_interval <- function(x, level, figure) {
  n <- length(x)
  x <- sort(x)
  k <- sum(pbinom(0:n, n, 0.5) <= (1 - level) / 2)
  note(paste0(figure, ".value"), median(x))
  interval(figure, if (k > 0) x[c(k, n + 1 - k)] else c(NA, NA))
  note(paste0(figure, ".attained"), if (k > 0) 1 - 2 * pbinom(k - 1, n, 0.5) else NA)
}

directions <- function(figure, p) for (d in names(p)) note(paste0(figure, ".", d, ".value"), p[[d]])
alternatives <- c(two = "two.sided", greater = "greater", less = "less")

mann_whitney <- function(x, y, level = 0.95) {
  case("mann-whitney", list(x, y), level)
  n1 <- length(x); n2 <- length(y); N <- n1 + n2
  d <- outer(x, y, "-")
  U <- sum(d > 0) + sum(d == 0) / 2
  ties <- table(c(x, y)); ties <- ties[ties > 1]
  C <- 1 - sum(ties^3 - ties) / (N^3 - N)
  note("statistic.u.1", U)
  note("data.pairs.greater", sum(d > 0))
  note("data.pairs.equal", sum(d == 0))
  note("data.ties.groups", length(ties))
  note("data.ties.sum", sum(ties^3 - ties))
  frame <- data.frame(v = c(x, y), g = factor(rep(c("a", "b"), c(n1, n2))))
  if (C > 0) directions("p.exact", lapply(alternatives, function(a)
    as.numeric(pvalue(wilcox_test(v ~ g, frame, distribution = "exact", alternative = a)))))
  if (C > 0) {
    note("p.normal.z", as.numeric(statistic(wilcox_test(v ~ g, frame, distribution = "asymptotic"))))
    for (corrected in c(FALSE, TRUE))
      directions(if (corrected) "p.normal.corrected" else "p.normal", lapply(alternatives, function(a)
        wilcox.test(x, y, exact = FALSE, correct = corrected, alternative = a)$p.value))
  } else note("p.normal", NA)
  A <- U / (n1 * n2)
  z <- qnorm((1 + level) / 2)
  s <- N / 2 - 1
  V <- function(t) C * t * (1 - t) * (1 + s * (1 - t) / (2 - t) + s * t / (1 + t)) / (n1 * n2)
  note("effect.superiority.value", A)
  note("effect.rankBiserial.value", mean(sign(d)))
  if (C > 0) {
    f <- function(t) (A - t)^2 - z^2 * V(t)
    interval("effect.superiority",
             c(if (A == 0) 0 else root(f, 0, min(A, 1 - 1e-9)), if (A == 1) 1 else root(f, max(A, 1e-9), 1)))
  } else interval("effect.superiority", c(NA, NA))
  d <- sort(d)
  k <- sum(pwilcox(0:(n1 * n2), n1, n2) <= (1 - level) / 2)
  note("effect.shift.value", median(d))
  interval("effect.shift", if (k > 0) d[c(k, n1 * n2 + 1 - k)] else c(NA, NA))
  note("effect.shift.attained", if (k > 0) 1 - 2 * pwilcox(k - 1, n1, n2) else NA)
  note("effect.shift.best", max(1 - 2 * pwilcox(0, n1, n2), 0))
  note("groups.2.meanRank", mean(rank(c(x, y))[-(1:n1)]))
  median_interval(x, level, "groups.1.median")
  median_interval(y, level, "groups.2.median")
}

wilcoxon <- function(x, y, level = 0.95) {
  case("wilcoxon", list(x, y), level)
  d <- round(x - y, 6)
  n <- length(d)
  note("data.positive", sum(d > 0))
  note("data.zero", sum(d == 0))
  for (zeros in c("Wilcoxon", "Pratt")) {
    name <- if (zeros == "Wilcoxon") "p.zerosLeftOut" else "p.pratt"
    if (zeros == "Pratt" && !any(d == 0)) { note(name, NA); next }
    r <- if (zeros == "Pratt") rank(abs(d)) else { r <- rep(0, n); r[d != 0] <- rank(abs(d[d != 0])); r }
    note(paste0(name, ".plus"), sum(r[d > 0]))
    if (all(d == 0)) { note(paste0(name, ".exact"), NA); note(paste0(name, ".normal"), NA); next }
    paired <- data.frame(d = d, o = 0)
    test <- function(...) wilcoxsign_test(d ~ o, paired, zero.method = zeros, ...)
    directions(paste0(name, ".exact"), lapply(alternatives, function(a)
      as.numeric(pvalue(test(distribution = "exact", alternative = a)))))
    note(paste0(name, ".normal.z"), as.numeric(statistic(test(distribution = "asymptotic"))))
    directions(paste0(name, ".normal"), lapply(alternatives, function(a)
      as.numeric(pvalue(test(distribution = "asymptotic", alternative = a)))))
    if (zeros == "Wilcoxon") directions(paste0(name, ".normal.corrected"), lapply(alternatives, function(a)
      suppressWarnings(wilcox.test(d, exact = FALSE, correct = TRUE, alternative = a)$p.value)))
  }
  if (any(d != 0)) {
    r <- rank(abs(d[d != 0]))
    b <- sum(r * sign(d[d != 0])) / sum(r)
    v <- sum(r^2) / sum(r)^2
    z <- qnorm((1 + level) / 2)
    f <- function(t) (b - t)^2 - z^2 * v * (1 - t^2)
    note("effect.rankBiserial.value", b)
    interval("effect.rankBiserial", c(if (b == -1) -1 else root(f, -1, min(b, 1 - 1e-9)), if (b == 1) 1 else root(f, max(b, -1 + 1e-9), 1)))
  } else note("effect.rankBiserial", NA)
  w <- outer(d, d, "+") / 2
  w <- sort(w[lower.tri(w, TRUE)])
  m <- length(w)
  k <- sum(psignrank(0:m, n) <= (1 - level) / 2)
  note("effect.pseudomedian.value", median(w))
  interval("effect.pseudomedian", if (k > 0) w[c(k, m + 1 - k)] else c(NA, NA))
  note("effect.pseudomedian.attained", if (k > 0) 1 - 2 * psignrank(k - 1, n) else NA)
  median_interval(y, level, "groups.2.median")
}

permutations <- function(n) {
  if (n == 1) return(matrix(1, 1, 1))
  smaller <- permutations(n - 1)
  do.call(rbind, lapply(1:n, function(i) cbind(i, ifelse(smaller >= i, smaller + 1, smaller))))
}
tails_of <- function(figure, all, observed) {
  e <- 1e-9
  distance <- abs(all - mean(all))
  note(paste0(figure, ".two.value"), mean(distance >= abs(observed - mean(all)) - e))
  note(paste0(figure, ".greater.value"), mean(all >= observed - e))
  note(paste0(figure, ".less.value"), mean(all <= observed + e))
  note(paste0(figure, ".point"), mean(abs(all - observed) < e))
}

spearman <- function(x, y, level = 0.95) {
  case("spearman", list(x, y), level)
  n <- length(x)
  rx <- rank(x); ry <- rank(y)
  if (sd(rx) == 0 || sd(ry) == 0) { note("effect.rho", NA); note("p.method", "none"); return() }
  rho <- cor(rx, ry)
  note("effect.rho.value", rho)
  tied <- anyDuplicated(x) || anyDuplicated(y)
  if (n <= 8) {
    P <- permutations(n)
    all <- as.vector(matrix(ry[P], nrow(P)) %*% rx)
    tails_of("p.exact", all, sum(rx * ry))
  } else if (n > 16 && !tied) {
    p <- lapply(alternatives, function(a) cor.test(x, y, method = "spearman", exact = TRUE, alternative = a)$p.value)
    if (min(p$greater, p$less) >= 0.0005) directions("p.series", p) else note("p.series", NA)
  }
  if (n > 2 && abs(rho) < 1 - 1e-12) directions("p.t", lapply(alternatives, function(a) {
    t <- rho * sqrt((n - 2) / (1 - rho^2))
    switch(a, two.sided = 2 * pt(-abs(t), n - 2), greater = pt(-t, n - 2), less = pt(t, n - 2))
  }))
  interval("effect.rho", if (n >= 4 && abs(rho) < 1 - 1e-12)
    tanh(atanh(rho) + c(-1, 1) * qnorm((1 + level) / 2) * sqrt((1 + rho^2 / 2) / (n - 3))) else c(NA, NA))
}

sign_test <- function(x, y, level = 0.95) {
  case("sign", list(x, y), level)
  d <- round(x - y, 6)
  k <- sum(d > 0); m <- sum(d != 0)
  note("data.zero", sum(d == 0))
  if (m > 0) {
    directions("p.exact", lapply(alternatives, function(a) binom.test(k, m, alternative = a)$p.value))
    note("p.exact.point", dbinom(k, m, 0.5))
    z <- (k - m / 2) / sqrt(m / 4)
    note("p.normal.z", z)
    note("p.normal.two.value", 2 * pnorm(-abs(z)))
    note("p.normal.corrected.greater.value", pnorm((k - m / 2 - 0.5) / sqrt(m / 4), lower.tail = FALSE))
    note("p.normal.corrected.less.value", pnorm((k - m / 2 + 0.5) / sqrt(m / 4)))
    note("effect.positiveShare.value", k / m)
    interval("effect.positiveShare", binom.test(k, m, conf.level = level)$conf.int)
  } else { note("p.exact", NA); note("p.normal", NA); note("effect.positiveShare", NA) }
  median_interval(d, level, "effect.medianDifference")
}

runs_of <- function(x) 1 + sum(x[-1] != x[-length(x)])
runs_tails <- function(all, weights, r) {
  e <- 1e-9
  mean <- sum(all * weights)
  note("p.exact.two.value", sum(weights[abs(all - mean) >= abs(r - mean) - e]))
  note("p.exact.fewer.value", sum(weights[all <= r]))
  note("p.exact.more.value", sum(weights[all >= r]))
  note("p.exact.point", sum(weights[all == r]))
}
runs <- function(x) {
  case("runs", list(x))
  r <- runs_of(x); N <- length(x); n <- as.vector(table(x))
  note("data.runs", r)
  E <- (N * (N + 1) - sum(n^2)) / N
  V <- (sum(n^2) * (sum(n^2) + N * (N + 1)) - 2 * N * sum(n^3) - N^3) / (N^2 * (N - 1))
  note("data.expected", E)
  if (length(n) == 2) {
    k <- 1:min(n)
    even <- 2 * choose(n[1] - 1, k - 1) * choose(n[2] - 1, k - 1)
    odd <- choose(n[1] - 1, k) * choose(n[2] - 1, k - 1) + choose(n[1] - 1, k - 1) * choose(n[2] - 1, k)
    runs_tails(c(2 * k, 2 * k + 1), c(even, odd) / choose(N, n[1]), r)
  } else if (N <= 8) {
    P <- permutations(N)
    runs_tails(apply(matrix(x[P], nrow(P)), 1, runs_of), rep(1 / nrow(P), nrow(P)), r)
  }
  if (length(n) > 1 && V > 0) {
    note("data.variance", V)
    z <- (r - E) / sqrt(V)
    note("p.normal.z", z)
    note("p.normal.two.value", 2 * pnorm(-abs(z)))
    note("p.normal.fewer.value", pnorm(z))
    note("p.normal.corrected.z", sign(z) * max(abs(r - E) - 0.5, 0) / sqrt(V))
    note("p.normal.corrected.fewer.value", pnorm((r - E + 0.5) / sqrt(V)))
  } else note("p.normal", NA)
  note("effect.equalNeighbours.value", mean(x[-1] == x[-N]))
}

compare <- function(p, k, level) {
  pairs <- combn(k, 2)
  for (i in seq_along(p)) {
    note(paste0("comparisons.", i, ".p.value"), p[i])
    note(paste0("comparisons.", i, ".adjusted.value"), p.adjust(p, "holm")[i])
  }
  names(p) <- apply(pairs, 2, paste, collapse = "-")
  letters_of <- multcompLetters(p.adjust(p, "holm") <= 1 - level)$Letters
  for (i in 1:k) for (j in 1:k) if (i < j) {
    share <- length(intersect(strsplit(letters_of[[as.character(i)]], "")[[1]],
                              strsplit(letters_of[[as.character(j)]], "")[[1]])) > 0
    note(paste0("alike.", i, ".", j), as.numeric(share))
  }
}

# The noncentrality at which a statistic as small has this chance.
noncentrality <- function(chance, p) if (p(0) <= chance) 0 else {
  above <- 1
  while (p(above) > chance) above <- above * 2
  root(function(l) p(l) - chance, 0, above)
}

median_test <- function(groups, level = 0.95) {
  case("median", groups, level)
  all <- unlist(groups)
  n <- sapply(groups, length); k <- length(n); N <- sum(n)
  M <- median(all)
  a <- sapply(groups, function(g) sum(g > M))
  note("data.grandMedian", M)
  note("data.equal", sum(all == M))
  if (sum(a) == 0) { note("p.chiSquare", NA); note("p.exact", NA); note("effect.cramerV", NA); return() }
  X <- function(a, n) {
    e <- n * sum(a) / sum(n)
    sum((a - e)^2 / e + (a - e)^2 / (n - e))
  }
  note("p.chiSquare.value", suppressWarnings(chisq.test(rbind(a, n - a), correct = FALSE)$statistic))
  note("p.chiSquare.p.value", pchisq(X(a, n), k - 1, lower.tail = FALSE))
  exact <- function(a, n) {
    if (sum(a) == 0 || sum(a) == sum(n)) return(c(1, 1))
    tables <- as.matrix(expand.grid(lapply(n[-1], function(m) 0:m)))
    tables <- cbind(sum(a) - rowSums(tables), tables)
    tables <- tables[tables[, 1] >= 0 & tables[, 1] <= n[1], , drop = FALSE]
    chance <- exp(colSums(lchoose(n, t(tables))) - lchoose(sum(n), sum(a)))
    X2 <- apply(tables, 1, X, n)
    c(sum(chance[X2 >= X(a, n) - 1e-9]), sum(chance[abs(X2 - X(a, n)) < 1e-9]))
  }
  note("p.exact.p.value", exact(a, n)[1])
  note("p.exact.point", exact(a, n)[2])
  chance <- function(l) pchisq(X(a, n), k - 1, l)
  note("effect.cramerV.value", sqrt(X(a, n) / N))
  interval("effect.cramerV", pmin(sqrt(c(noncentrality((1 + level) / 2, chance), noncentrality((1 - level) / 2, chance)) / N), 1))
  for (g in 1:k) {
    note(paste0("groups.", g, ".above"), a[g])
    interval(paste0("groups.", g, ".share"), binom.test(a[g], n[g], conf.level = level)$conf.int)
  }
  pairs <- combn(k, 2)
  compare(apply(pairs, 2, function(i) exact(a[i], n[i])[1]), k, level)
}

kruskal_wallis <- function(groups, level = 0.95) {
  case("kruskal-wallis", groups, level)
  all <- unlist(groups)
  n <- sapply(groups, length); k <- length(n); N <- sum(n)
  g <- factor(rep(1:k, n))
  r <- rank(all)
  for (i in 1:k) note(paste0("groups.", i, ".meanRank"), mean(r[g == i]))
  if (length(unique(all)) == 1) { note("p.chiSquare", NA); note("p.exact", NA); note("effect.epsilonSquared", NA); return() }
  fit <- kruskal.test(all, g)
  H <- unname(fit$statistic)
  note("p.chiSquare.value", H)
  note("p.chiSquare.p.value", fit$p.value)
  if (N > k && N - 1 - H > 1e-9) {
    aov <- anova(lm(r ~ g))
    note("p.f.value", aov[["F value"]][1])
    note("p.f.p.value", aov[["Pr(>F)"]][1])
  }
  if (N <= 8) {
    P <- permutations(N)
    R <- matrix(r[P], nrow(P))
    S <- rowSums(sapply(1:k, function(i) rowSums(R[, g == i, drop = FALSE])^2 / n[i]))
    observed <- sum(tapply(r, g, sum)^2 / n)
    note("p.exact.p.value", mean(S >= observed - 1e-9))
    note("p.exact.point", mean(abs(S - observed) < 1e-9))
  }
  note("effect.epsilonSquared.value", H / (N - 1))
  if (N > k && N - 1 - H > 1e-9) {
    F <- H / (k - 1) / ((N - 1 - H) / (N - k))
    chance <- function(l) pf(F, k - 1, N - k, l)
    l <- c(noncentrality((1 + level) / 2, chance), noncentrality((1 - level) / 2, chance))
    interval("effect.epsilonSquared", l / (l + N))
  } else interval("effect.epsilonSquared", c(NA, NA))
  pairs <- combn(k, 2)
  variance <- var(r)
  z <- apply(pairs, 2, function(i) (mean(r[g == i[1]]) - mean(r[g == i[2]])) / sqrt(variance * sum(1 / n[i])))
  for (i in seq_along(z)) {
    note(paste0("comparisons.", i, ".z"), z[i])
    d <- outer(groups[[pairs[1, i]]], groups[[pairs[2, i]]], "-")
    note(paste0("comparisons.", i, ".superiority"), mean((d > 0) + (d == 0) / 2))
  }
  compare(2 * pnorm(-abs(z)), k, level)
}

friedman <- function(groups, level = 0.95) {
  case("friedman", groups, level)
  m <- do.call(cbind, groups)
  b <- nrow(m); k <- ncol(m)
  R <- t(apply(m, 1, rank))
  note("data.blocks", b)
  for (i in 1:k) note(paste0("groups.", i, ".meanRank"), mean(R[, i]))
  if (all(R == (k + 1) / 2)) { note("p.chiSquare", NA); note("effect.kendallW", NA); return() }
  fit <- friedman.test(m)
  X <- unname(fit$statistic)
  W <- X / (b * (k - 1))
  note("p.chiSquare.value", X)
  note("p.chiSquare.p.value", fit$p.value)
  if (W < 1 - 1e-12) {
    F <- (b - 1) * W / (1 - W)
    note("p.f.value", F)
    note("p.f.p.value", pf(F, k - 1, (b - 1) * (k - 1), lower.tail = FALSE))
  } else note("p.f", NA)
  if (factorial(k)^b <= 1e6) {
    P <- permutations(k)
    sums <- matrix(0, 1, k)
    for (i in 1:b) {
      orders <- matrix(R[i, ][P], nrow(P))
      sums <- do.call(rbind, lapply(1:nrow(orders), function(o) sweep(sums, 2, orders[o, ], "+")))
    }
    S <- rowSums(sums^2)
    note("p.exact.p.value", mean(S >= sum(colSums(R)^2) - 1e-9))
    note("p.exact.point", mean(abs(S - sum(colSums(R)^2)) < 1e-9))
  }
  note("effect.kendallW.value", W)
  w_of <- function(m) unname(friedman.test(m)$statistic) / (nrow(m) * (k - 1))
  logit <- function(w) qlogis(pmin(pmax(w, 0.001), 0.999))
  if (b > 2 && W < 1 - 1e-12) {
    F <- (b - 1) * W / (1 - W)
    chance <- function(l) pf(F, k - 1, (b - 1) * (k - 1), l)
    l <- c(noncentrality((1 + level) / 2, chance), noncentrality((1 - level) / 2, chance))
    pseudo <- sapply(1:b, function(i) b * logit(W) - (b - 1) * logit(w_of(m[-i, ])))
    jack <- if (any(is.nan(pseudo))) c(NA, NA) else
      plogis(logit(W) + c(-1, 1) * qt((1 + level) / 2, b - 1) * sd(pseudo) / sqrt(b))
    f <- l / (l + b * (k - 1))
    interval("effect.kendallW", c(min(f[1], jack[1]), max(f[2], jack[2])))
  } else interval("effect.kendallW", c(NA, NA))
  pairs <- combn(k, 2)
  ties <- sum(apply(R, 1, function(x) sum(table(x)^3 - table(x))))
  C <- 1 - ties / (b * (k^3 - k))
  note("data.ties.factor", C)
  z <- apply(pairs, 2, function(i) (sum(R[, i[1]]) - sum(R[, i[2]])) / sqrt(b * k * (k + 1) * C / 6))
  for (i in seq_along(z)) {
    note(paste0("comparisons.", i, ".z"), z[i])
    note(paste0("comparisons.", i, ".blocks.greater"), sum(m[, pairs[1, i]] > m[, pairs[2, i]]))
    note(paste0("comparisons.", i, ".blocks.equal"), sum(m[, pairs[1, i]] == m[, pairs[2, i]]))
  }
  compare(2 * pnorm(-abs(z)), k, level)
}

set.seed(12)
with_grain <- function(n, grain, shift = 0) round(rnorm(n, shift, 1) / grain) * grain
whole <- function(n, of, shift = 0) sample(of, n, TRUE) + shift

# The examples of R's pages on friedman.test and cor.test (Hollander and Wolfe 1973) are among the cases.
round_out <- c(5.40, 5.85, 5.20, 5.55, 5.90, 5.45, 5.40, 5.45, 5.25, 5.85, 5.25, 5.65, 5.60, 5.05, 5.50, 5.45, 5.55, 5.45,
               5.50, 5.65, 5.70, 6.30)
narrow_angle <- c(5.50, 5.70, 5.60, 5.50, 5.85, 5.55, 5.40, 5.50, 5.15, 5.80, 5.20, 5.55, 5.35, 5.00, 5.50, 5.55, 5.55,
                  5.50, 5.45, 5.60, 5.65, 6.30)
wide_angle <- c(5.55, 5.75, 5.50, 5.40, 5.70, 5.60, 5.35, 5.35, 5.00, 5.70, 5.10, 5.45, 5.45, 4.95, 5.40, 5.50, 5.35, 5.55,
                5.25, 5.40, 5.55, 6.25)
sleep1 <- sleep$extra[1:10]; sleep2 <- sleep$extra[11:20]
mann_whitney(sleep1, sleep2)
mann_whitney(sleep1, sleep2, 0.8)
mann_whitney(1:3, 4:6)
mann_whitney(c(7, 8, 9, 10), c(1, 2, 3, 4, 5), 0.99)
mann_whitney(5, c(1, 2, 9))
mann_whitney(2, 3)
mann_whitney(c(4, 4, 4), c(4, 4))
mann_whitney(c(1, 1, 1, 2, 2, 2, 2, 2), c(1, 2, 2, 2, 2, 2, 2, 2, 2))
for (of in 2:5) mann_whitney(whole(12, of), whole(9, of, 1))
for (n in c(4, 7, 15)) mann_whitney(round(rnorm(n), 3), round(rnorm(2 * n, 0.6), 3))
mann_whitney(whole(25, 5), whole(30, 5))
mann_whitney(round(rnorm(20, 0, 4)), round(rnorm(20, 1)), 0.9)

wilcoxon(sleep1, sleep2)
wilcoxon(sleep1, sleep2, 0.5)
wilcoxon(round_out, narrow_angle)
wilcoxon(1:6, c(2, 1, 5, 7, 9, 3))
wilcoxon(c(5, 6, 7, 9), c(4, 4, 4, 4), 0.8)
wilcoxon(3, 1)
wilcoxon(c(2, 3, 4), c(2, 3, 4))
for (of in 2:6) wilcoxon(whole(14, of), whole(14, of))
for (n in c(5, 9, 20)) wilcoxon(round(rnorm(n), 2), round(rnorm(n, 0.7), 2))
wilcoxon(whole(40, 5), whole(40, 5), 0.99)

spearman(c(44.4, 45.9, 41.9, 53.3, 44.7, 44.1, 50.7, 45.2, 60.1), c(2.6, 3.1, 2.5, 5.0, 3.6, 4.0, 5.2, 2.8, 3.8))
spearman(1:5, c(2, 1, 4, 3, 5))
spearman(1:4, 4:1)
spearman(1:3, c(1, 3, 2))
spearman(c(1, 2), c(5, 4))
spearman(c(1, 1, 1, 1), c(1, 2, 3, 4))
for (of in 2:5) spearman(whole(8, of), whole(8, of))
for (n in c(6, 7, 8)) spearman(round(rnorm(n), 2), round(rnorm(n), 2), 0.9)
x <- round(rnorm(17), 3); spearman(x, round(x + rnorm(17, 0, 2), 3))
x <- round(rnorm(30), 3); spearman(x, round(-x + rnorm(30, 0, 3), 3))
x <- round(rnorm(60), 3); spearman(x, round(x + rnorm(60, 0, 0.3), 3))
spearman(whole(50, 20), whole(50, 20))

sign_test(c(1.83, 0.5, 1.62, 2.48, 1.68, 1.88, 1.55, 3.06, 1.3), c(0.878, 0.647, 0.598, 2.05, 1.06, 1.29, 1.06, 3.14, 1.29))
sign_test(c(1, 2, 3), c(1, 2, 3))
sign_test(4, 3)
sign_test(1:6, rep(0, 6))
sign_test(1:5, 6:10, 0.9)
for (of in 2:6) sign_test(whole(5 * of, of), whole(5 * of, of))
for (n in c(12, 33, 60)) sign_test(round(rnorm(n, 0.4), 1), round(rnorm(n), 1), 0.99)

runs(as.numeric(Nile > median(Nile)))
runs(c(1, 1, 2, 2, 1))
runs(c(1, 2, 1, 2, 1, 2, 1, 2))
runs(c(1, 1, 1, 2, 2, 2, 2))
runs(c(1, 2))
runs(c(3, 3, 3))
runs(c(1, 2, 3, 1, 2, 3))
runs(c(1, 1, 2, 2, 3, 3, 3))
runs(c(1, 1, 1, 2, 3, 4, 4, 4))
for (n in c(6, 7, 8)) runs(whole(n, 3))
for (n in c(8, 20, 45)) runs(whole(n, 2))

plants <- split(PlantGrowth$weight, PlantGrowth$group)
sprays <- split(InsectSprays$count, InsectSprays$spray)
median_test(unname(plants))
median_test(unname(sprays[1:3]))
median_test(list(1:3, 4:6))
median_test(list(c(1, 2), c(5, 6, 7, 8), 3))
median_test(list(c(4, 4), c(4, 4, 4)))
median_test(list(c(4, 4, 5), c(4, 4, 4), c(1, 4, 4)))
for (of in 3:6) median_test(list(whole(10, of), whole(7, of, 1), whole(8, of)))
for (n in 4:6) median_test(list(round(rnorm(n), 2), round(rnorm(2 * n, 1), 2), round(rnorm(n), 2), round(rnorm(3, 2), 2)), 0.9)

kruskal_wallis(unname(plants))
kruskal_wallis(unname(sprays))
kruskal_wallis(list(1:2, 3:4, 5:6))
kruskal_wallis(list(c(1, 1, 2), c(1, 3, 4), c(2, 2)))
kruskal_wallis(list(1, c(2, 3, 4)))
kruskal_wallis(list(c(4, 4), c(4, 4, 4)))
kruskal_wallis(list(1, 2, 3))
for (of in 2:6) kruskal_wallis(list(whole(3, of), whole(2, of, 1), whole(3, of)))
for (n in 5:7) kruskal_wallis(list(round(rnorm(n), 2), round(rnorm(2 * n, 1), 2), round(rnorm(n, 2), 2)), 0.9)

friedman(list(round_out, narrow_angle, wide_angle))
friedman(list(c(1, 1, 1, 2), c(2, 2, 2, 1), c(3, 3, 3, 3)))
friedman(list(c(1, 1, 1), c(2, 2, 2), c(3, 3, 3)))
friedman(list(c(-1, 0), c(-1, 4)))
friedman(list(c(2, 2, 2), c(2, 2, 2)))
friedman(list(c(5, 3, 4, 4), c(5, 3, 6, 4), c(6, 2, 4, 5), c(1, 2, 4, 8)))
for (of in 2:6) friedman(list(whole(5, of), whole(5, of, 1), whole(5, of)))
for (b in c(3, 6, 7)) friedman(list(round(rnorm(b), 2), round(rnorm(b, 1), 2), round(rnorm(b), 2)), 0.9)
friedman(lapply(0:3, function(s) round(rnorm(15, s / 2), 1)))

# Forty and more of each: few and many different values, alone and together, apart and alike, at four levels.
set.seed(40)
levels <- c(0.5, 0.8, 0.95, 0.99)
level_of <- function(i) levels[1 + i %% 4]
for (i in 1:24) {
  n1 <- 1 + i %% 9; n2 <- 2 + (7 * i) %% 11
  if (i %% 3 == 0) mann_whitney(whole(n1, 1 + i %/% 4), whole(n2, 1 + i %/% 4, i %% 2), level_of(i))
  else mann_whitney(round(rnorm(n1, i %% 5), 2), round(rnorm(n2), 2), level_of(i))
}
for (i in 1:26) {
  n <- 1 + (5 * i) %% 17
  if (i %% 3 == 0) wilcoxon(whole(n, 1 + i %/% 4), whole(n, 1 + i %/% 4, i %% 2), level_of(i))
  else wilcoxon(round(rnorm(n, i %% 4 - 1), 1), round(rnorm(n), 1), level_of(i))
}
for (i in 1:26) {
  n <- 2 + i %% 7
  if (i %% 3 == 0) spearman(whole(n, 2 + i %/% 5), whole(n, 2 + i %/% 5), level_of(i))
  else if (i %% 3 == 1) { x <- round(rnorm(n), 2); spearman(x, round(x * (i %% 5 - 2) + rnorm(n), 2), level_of(i)) }
  else spearman(round(rnorm(17 + i), 3), round(rnorm(17 + i), 3), level_of(i))
}
for (i in 1:30) {
  n <- 1 + (7 * i) %% 41
  if (i %% 3 == 0) sign_test(whole(n, 1 + i %/% 5), whole(n, 1 + i %/% 5), level_of(i))
  else sign_test(round(rnorm(n, i %% 3 - 1), 1), round(rnorm(n), 1), level_of(i))
}
for (i in 1:26) runs(whole(if (i %% 2 == 0) 2 + i %% 7 else 5 + 2 * i, if (i %% 2 == 0) 1 + i %% 4 else 2))
for (i in 1:30) {
  sizes <- 1 + (c(3, 5, 7) * i) %% c(5, 9, 8)
  median_test(lapply(sizes[1:(2 + i %% 2)], function(n)
    if (i %% 3 == 0) whole(n, 2 + i %/% 6) else round(rnorm(n, i %% 4 * runif(1)), 2)), level_of(i))
}
for (i in 1:26) {
  sizes <- 1 + (c(3, 5, 7, 2) * i) %% c(5, 9, 8, 6)
  kruskal_wallis(lapply(sizes[1:(2 + i %% 3)], function(n)
    if (i %% 3 == 0) whole(n, 2 + i %/% 6) else round(rnorm(n, i %% 4 * runif(1)), 2)), level_of(i))
}
for (i in 1:28) {
  b <- 2 + i %% 7; k <- 2 + (i %/% 7) %% 3
  friedman(lapply(1:k, function(t) if (i %% 3 == 0) whole(b, 2 + i %/% 7) else round(rnorm(b, t * (i %% 3) / 2), 2)), level_of(i))
}

writeLines(c("test,groups,level,figure,value", unlist(rows)), "details.csv")
