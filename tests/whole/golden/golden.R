# Writes data/*.csv and golden.csv: published data sets and the figures that R gives for them.
# Run it in this folder: R --vanilla --quiet < golden.R
#
# relation "equal":   the figure is R's own function, or the formula written out here; both must agree with
#                     the program to a relative 1e-12.
# relation "differs": the figure of an R function that deliberately differs, with the reason.
options(digits = 17, warn = -1)

rows <- list()
note <- function(data, test, tails, ignore_ties, result, value, peer, relation = "equal", reason = "") {
  rows[[length(rows) + 1]] <<- data.frame(data, test, tails, ignore_ties, result,
    value = sprintf("%.17g", value), peer, relation, reason)
}
tailed <- c(two = "two.sided", greater = "greater", less = "less")
save <- function(name, frame) write.csv(frame, file.path("data", paste0(name, ".csv")), row.names = FALSE, na = "", quote = FALSE)
columns <- function(...) {
  lists <- list(...)
  longest <- max(lengths(lists))
  as.data.frame(lapply(lists, function(column) c(column, rep(NA, longest - length(column)))))
}

mann_whitney <- function(name, first, second) {
  save(name, columns(First = first, Second = second))
  n1 <- length(first); n2 <- length(second)
  ranks <- rank(c(first, second))
  W <- sum(ranks[seq_len(n1)]) - n1 * (n1 + 1) / 2
  U <- c(two = max(W, n1 * n2 - W), greater = W, less = n1 * n2 - W)
  ties <- anyDuplicated(c(first, second)) > 0
  for (tails in names(tailed)) {
    note(name, "mann-whitney", tails, 0, "u", U[[tails]], "rank sums")
    if (n1 * n2 < 50000) {
      # U + 1, a place in the list of frequencies, is rounded with halves to even; so does round().
      P <- pwilcox(round(U[[tails]] + 1) - 2, n1, n2, lower.tail = FALSE) * (if (tails == "two") 2 else 1)
      note(name, "mann-whitney", tails, 0, "p", min(P, 1), "pwilcox")
      peer <- wilcox.test(first, second, alternative = tailed[[tails]], exact = !ties, correct = FALSE)$p.value
      if (!ties) {
        note(name, "mann-whitney", tails, 0, "p", peer, "wilcox.test(exact = TRUE, correct = FALSE)")
      } else {
        note(name, "mann-whitney", tails, 0, "p", peer, "wilcox.test(exact = FALSE, correct = FALSE)", "differs",
          "with ties R approximates by the normal distribution; the program's exact distribution ignores ties")
      }
    } else if (U[[tails]] >= n1 * n2 / 2) {
      note(name, "mann-whitney", tails, 0, "p",
        wilcox.test(first, second, alternative = tailed[[tails]], exact = FALSE, correct = TRUE)$p.value,
        "wilcox.test(exact = FALSE, correct = TRUE)")
    }
  }
}

# Exact lower tail of the signed-rank sum for any ranks, by adding one rank after another.
signed_rank_tail <- function(ranks, T) {
  ranks <- round(2 * ranks)
  counts <- c(1, rep(0, sum(ranks)))
  for (rank in ranks) counts <- counts + c(rep(0, rank), counts)[seq_along(counts)]
  sum(counts[seq_len(round(2 * T) + 1)]) / 2^length(ranks)
}

wilcoxon <- function(name, first, second) {
  save(name, columns(First = first, Second = second))
  differences <- signif(first - second, 7)
  for (ignore_ties in 0:1) {
    ranked <- if (ignore_ties) differences[differences != 0] else differences
    ranks <- rank(abs(ranked))
    plus <- sum(ranks[ranked > 0]); minus <- sum(ranks[ranked < 0])
    T <- c(two = min(plus, minus), greater = minus, less = plus)
    for (tails in names(tailed)) {
      factor <- if (tails == "two") 2 else 1
      if (length(differences) <= 50) {
        note(name, "wilcoxon", tails, ignore_ties, "t", T[[tails]], "rank sums")
        note(name, "wilcoxon", tails, ignore_ties, "p", min(1, factor * signed_rank_tail(ranks, T[[tails]])),
          "subset sums of the ranks")
        if (anyDuplicated(ranks) == 0 && all(ranked != 0)) {
          note(name, "wilcoxon", tails, ignore_ties, "p",
            wilcox.test(ranked, alternative = tailed[[tails]], exact = TRUE)$p.value, "wilcox.test(exact = TRUE)")
        }
      } else if (ignore_ties) {
        note(name, "wilcoxon", tails, ignore_ties, "p",
          wilcox.test(ranked, alternative = tailed[[tails]], exact = FALSE, correct = FALSE)$p.value,
          "wilcox.test(exact = FALSE, correct = FALSE)")
      }
    }
  }
}

spearman <- function(name, first, second) {
  save(name, columns(First = first, Second = second))
  n <- length(first)
  tie_term <- function(x) sum(table(x)^3 - table(x)) / n
  D <- sum((rank(first) - rank(second))^2)
  K <- (n^3 - n) / 6
  Tx <- tie_term(first); Ty <- tie_term(second)
  rs <- (K - D - Tx - Ty) / sqrt((K - 2 * Ty) * (K - 2 * Tx))
  note(name, "spearman", "two", 0, "rs", rs, "sums of squared rank differences")
  if (Tx == 0 && Ty == 0) {
    note(name, "spearman", "two", 0, "rs", cor(first, second, method = "spearman"), "cor(method = \"spearman\")")
  } else {
    note(name, "spearman", "two", 0, "rs", cor(first, second, method = "spearman"), "cor(method = \"spearman\")",
      "differs", "the program divides the tie terms by n, R's correlation of ranks is the usual correction by 12")
  }
  z <- rs * sqrt(n - 1)
  for (tails in names(tailed)) {
    peer <- cor.test(first, second, method = "spearman", alternative = tailed[[tails]], exact = n < 10)$p.value
    if (n <= 7 && Tx == 0 && Ty == 0) {
      against <- (tails == "greater" && rs < 0) || (tails == "less" && rs > 0)
      note(name, "spearman", tails, 0, "p", peer, "cor.test(method = \"spearman\", exact = TRUE)",
        if (against) "differs" else "equal",
        if (against) "the tail against the stated direction leaves out the observed rs itself" else "")
    } else {
      D0 <- (n^2 - 1) * n * (1 + abs(rs)) / 6
      if (abs(D0 - round(D0)) < 1e-9 * D0) D0 <- round(D0)
      x <- (6 * (D0 - 1) / ((n^2 - 1) * n) - 1) * sqrt(n - 1)
      H <- function(...) sum(c(...) * x^(2 * rev(seq_along(c(...))) - 1))
      k4 <- -4.56 / n; k6 <- 114.22 / n^2; k8 <- -6902 / n^3
      H3 <- x^3 - 3 * x
      H5 <- H(1, -10, 15); H7 <- H(1, -21, 105, -105); H9 <- H(1, -36, 378, -1260, 945)
      H11 <- H(1, -55, 990, -6930, 17325, -10395)
      E <- k6 / 720 * H5 + k4 / 24 * H3 + k4^2 / 1152 * H7 + k8 / 40320 * H7 + k4 * k6 / 17280 * H9 - k4^3 / 82944 * H11
      upper <- pnorm(x, lower.tail = FALSE) + dnorm(x) * E
      P <- switch(tails, two = 2 * upper, greater = if (rs >= 0) upper else 1 - upper,
        less = if (rs <= 0) upper else 1 - upper)
      note(name, "spearman", tails, 0, "p", max(0, min(1, P)), "Edgeworth series")
      note(name, "spearman", tails, 0, "p", peer, "cor.test(method = \"spearman\")", "differs",
        "R counts permutations up to n = 9 and uses other series or t beyond; the program counts up to n = 7")
    }
    note(name, "spearman", tails, 0, "zP", pnorm(z, lower.tail = FALSE) * (if (tails == "two") 2 else 1), "pnorm")
  }
}

sign_test <- function(name, first, second) {
  save(name, columns(First = first, Second = second))
  positive <- sum(first > second); negative <- sum(first < second); N <- positive + negative
  note(name, "sign", "two", 0, "positive", positive, "comparison")
  note(name, "sign", "two", 0, "negative", negative, "comparison")
  note(name, "sign", "two", 0, "neither", length(first) - N, "comparison")
  S <- if (negative <= positive) pbinom(positive - 1, N, 0.5, lower.tail = FALSE) else pbinom(positive, N, 0.5, lower.tail = FALSE)
  P <- c(two = if (S <= 0.5) 2 * S else 2 * (1 - S), greater = S, less = 1 - S)
  for (tails in names(tailed)) {
    note(name, "sign", tails, 0, "p", P[[tails]], "pbinom")
    peer <- binom.test(positive, N, alternative = tailed[[tails]])$p.value
    if (isTRUE(all.equal(peer, P[[tails]], tolerance = 1e-13))) {
      note(name, "sign", tails, 0, "p", peer, "binom.test")
    } else {
      note(name, "sign", tails, 0, "p", peer, "binom.test", "differs",
        "the tail against the stated direction leaves out the observed count itself")
    }
  }
}

k_sample_columns <- function(groups) do.call(columns, groups)

kruskal_wallis <- function(name, groups) {
  save(name, k_sample_columns(groups))
  peer <- kruskal.test(groups)
  H <- peer$statistic[[1]]; N <- length(unlist(groups)); k <- length(groups)
  note(name, "kruskal-wallis", "two", 0, "chiSquare", H, "kruskal.test")
  note(name, "kruskal-wallis", "two", 0, "p", peer$p.value, "kruskal.test")
  note(name, "kruskal-wallis", "two", 0, "f", (N - k) * H / ((N - H - 1) * (k - 1)), "F transform of H")
  note(name, "kruskal-wallis", "two", 0, "fP",
    pf((N - k) * H / ((N - H - 1) * (k - 1)), k - 1, N - k - 1, lower.tail = FALSE), "pf with N - k - 1")
  note(name, "kruskal-wallis", "two", 0, "fP",
    pf((N - k) * H / ((N - H - 1) * (k - 1)), k - 1, N - k, lower.tail = FALSE), "pf with N - k", "differs",
    "the second degrees of freedom are one less than the usual N - k")
}

median_test <- function(name, groups) {
  save(name, k_sample_columns(groups))
  M <- median(unlist(groups))
  counts <- sapply(groups, function(group) c(sum(group > M), sum(group <= M)))
  expected <- outer(rowSums(counts), colSums(counts)) / sum(counts)
  G <- 2 * sum(ifelse(counts == 0, 0, counts * log(counts / expected)))
  df <- length(groups) - 1
  peer <- chisq.test(counts, correct = FALSE)
  note(name, "median", "two", 0, "grandMedian", M, "median")
  note(name, "median", "two", 0, "chiSquare", peer$statistic[[1]], "chisq.test(correct = FALSE)")
  note(name, "median", "two", 0, "p", peer$p.value, "chisq.test(correct = FALSE)")
  note(name, "median", "two", 0, "logLikelihood", G, "2 sum O ln(O / E)")
  note(name, "median", "two", 0, "logLikelihoodP", pchisq(G, df, lower.tail = FALSE), "pchisq")
  if (length(groups) == 2) {
    yates <- chisq.test(counts, correct = TRUE)
    note(name, "median", "two", 0, "yates", yates$statistic[[1]], "chisq.test(correct = TRUE)")
    note(name, "median", "two", 0, "yatesP", yates$p.value, "chisq.test(correct = TRUE)")
  }
}

friedman <- function(name, blocks) {
  save(name, as.data.frame(blocks))
  peer <- friedman.test(as.matrix(blocks))
  note(name, "friedman", "two", 0, "chiSquare", peer$statistic[[1]], "friedman.test")
  note(name, "friedman", "two", 0, "p", peer$p.value, "friedman.test")
  b <- nrow(blocks); k <- ncol(blocks)
  R <- colSums(t(apply(blocks, 1, rank)))
  X <- 12 * sum(R^2) / (k * b * (k + 1)) - 3 * (k + 1) * b
  F <- (b - 1) * X / ((k - 1) * b - X)
  note(name, "friedman", "two", 0, "f", F, "F transform of the uncorrected chi-square")
  note(name, "friedman", "two", 0, "fP", pf(F, k - 1, (k - 1) * (b - 1), lower.tail = FALSE), "pf")
}

runs <- function(name, codes) {
  save(name, data.frame(Code = codes))
  N <- length(codes); counts <- as.numeric(table(codes))
  observed <- length(rle(as.vector(codes))$lengths)
  S2 <- sum(counts^2); S3 <- sum(counts^3)
  E <- ((N + 1) * N - S2) / N
  V <- (((N + 1) * N + S2) * S2 - 2 * N * S3 - N^3) / (N * N * (N - 1))
  z <- (abs(observed - E) - 0.5) / sqrt(V)
  P2 <- 2 * pnorm(z, lower.tail = FALSE)
  small <- P2 < 1e-4
  relation <- if (small) "differs" else "equal"
  reason <- if (small) "the program takes 1 - Phi(z), whose subtraction leaves few digits of a small tail" else ""
  note(name, "runs", "two", 0, "runs", observed, "rle")
  note(name, "runs", "two", 0, "expected", E, "k-category formula")
  note(name, "runs", "two", 0, "z", z, "k-category formula")
  note(name, "runs", "two", 0, "p", P2, "pnorm(lower.tail = FALSE)", relation, reason)
  if (observed <= E) {
    note(name, "runs", "greater", 0, "p", P2 / 2, "pnorm(lower.tail = FALSE)", relation, reason)
    note(name, "runs", "less", 0, "p", 1 - P2 / 2, "pnorm")
  } else {
    note(name, "runs", "greater", 0, "p", 1 - P2 / 2, "pnorm")
    note(name, "runs", "less", 0, "p", P2 / 2, "pnorm(lower.tail = FALSE)", relation, reason)
  }
}

# Hollander and Wolfe (1973), page 69: permeability of the placenta's membranes at term and at 12 to 26 weeks.
mann_whitney("permeability", c(0.80, 0.83, 1.89, 1.04, 1.45, 1.38, 1.91, 1.64, 0.73, 1.46), c(1.15, 0.88, 0.90, 0.74, 1.21))
mann_whitney("airquality", with(airquality, Ozone[Month == 5 & !is.na(Ozone)]), with(airquality, Ozone[Month == 8 & !is.na(Ozone)]))
mann_whitney("tooth_growth", with(ToothGrowth, len[supp == "OJ"]), with(ToothGrowth, len[supp == "VC"]))
mann_whitney("quakes", quakes$mag[1:500], quakes$mag[501:1000])
# Hollander and Wolfe (1973), page 29: Hamilton depression scale factor at two visits.
wilcoxon("depression", c(1.83, 0.50, 1.62, 2.48, 1.68, 1.88, 1.55, 3.06, 1.30), c(0.878, 0.647, 0.598, 2.05, 1.06, 1.29, 1.06, 3.14, 1.29))
wilcoxon("sleep", sleep$extra[sleep$group == 1], sleep$extra[sleep$group == 2])
# Darwin (1876): heights of cross- and self-fertilised maize, in inches.
darwin <- list(crossed = c(23.5, 12, 21, 22, 19.125, 21.5, 22.125, 20.375, 18.25, 21.625, 23.25, 21, 22.125, 23, 12),
  selfed = c(17.375, 20.375, 20, 20, 18.375, 18.625, 18.625, 15.25, 16.5, 18, 16.25, 18, 12.75, 15.5, 18))
wilcoxon("darwin_maize", darwin$crossed, darwin$selfed)
wilcoxon("cars", cars$speed, cars$dist / 2)
wilcoxon("iris_pairs", iris$Petal.Length, iris$Sepal.Width)
spearman("bod", BOD$Time, BOD$demand)
# Hollander and Wolfe (1973), page 187: lightness of canned tuna and a consumer panel's score.
spearman("tuna", c(44.4, 45.9, 41.9, 53.3, 44.7, 44.1, 50.7, 45.2, 60.1), c(2.6, 3.1, 2.5, 5.0, 3.6, 4.0, 5.2, 2.8, 3.8))
spearman("trees", trees$Girth, trees$Height)
spearman("mtcars", mtcars$mpg, mtcars$wt)
sign_test("sleep_sign", sleep$extra[sleep$group == 1], sleep$extra[sleep$group == 2])
sign_test("darwin_sign", darwin$crossed, darwin$selfed)
sign_test("iris_sign", iris$Petal.Length, iris$Sepal.Width)
kruskal_wallis("chickwts", split(chickwts$weight, chickwts$feed))
kruskal_wallis("plant_growth", split(PlantGrowth$weight, PlantGrowth$group))
kruskal_wallis("airquality_months", lapply(split(airquality$Ozone, airquality$Month), function(x) x[!is.na(x)]))
median_test("insect_sprays", split(InsectSprays$count, InsectSprays$spray))
median_test("chickwts_median", split(chickwts$weight, chickwts$feed))
median_test("tooth_growth_median", split(ToothGrowth$len, ToothGrowth$supp))
# Hollander and Wolfe (1973), page 140: seconds to round first base by three methods, 22 players.
friedman("rounding_times", data.frame(
  Round.out = c(5.40, 5.85, 5.20, 5.55, 5.90, 5.45, 5.40, 5.45, 5.25, 5.85, 5.25, 5.65, 5.60, 5.05, 5.50, 5.45, 5.55, 5.45, 5.50, 5.65, 5.70, 6.30),
  Narrow.angle = c(5.50, 5.70, 5.60, 5.50, 5.85, 5.55, 5.40, 5.50, 5.15, 5.80, 5.20, 5.55, 5.35, 5.00, 5.50, 5.55, 5.55, 5.50, 5.45, 5.60, 5.65, 6.30),
  Wide.angle = c(5.55, 5.75, 5.50, 5.40, 5.70, 5.60, 5.35, 5.35, 5.00, 5.70, 5.10, 5.45, 5.45, 4.95, 5.40, 5.50, 5.35, 5.55, 5.25, 5.40, 5.55, 6.25)))
friedman("attitude", attitude)
runs("lake_huron", ifelse(LakeHuron > median(LakeHuron), "above", "below"))
runs("nottem", ifelse(diff(nottem) > 0, "up", ifelse(diff(nottem) < 0, "down", "same")))
runs("rivers", ifelse(rivers > median(rivers), "long", "short"))
runs("discoveries", ifelse(discoveries > mean(discoveries), "many", "few"))
runs("quakes_runs", quakes$stations[1:200] %% 4)

golden <- do.call(rbind, rows)
write.csv(golden, "golden.csv", row.names = FALSE)
cat(nrow(golden), "figures of", length(unique(golden$data)), "data sets\n")
