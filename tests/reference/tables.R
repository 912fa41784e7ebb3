# Writes tables.csv: what R gives for the tables of ../tables, read from the same files, and the command of the program
# that asks for it. Run it in this folder: R --vanilla --quiet < tables.R
# Where the program's figure is another one than R's test prints (docs/tests says how it is formed), it is formed here
# from R's ranks and distributions.
options(digits = 17, warn = -1)

# Workbooks are made of tables. What is asked of a table is asked of its workbook, too.
workbooks <- c(
  "write.csv/airquality.csv" = "openpyxl/airquality.xlsx", "write.csv/barley.csv" = "openpyxl/barley.xlsx",
  "write.csv/presidents.csv" = "libreoffice/presidents.ods", "write.csv/survey.csv" = "openpyxl/survey.xlsx",
  "write.csv/warpbreaks.csv" = "libreoffice/warpbreaks.xlsx",
  "write.csv_without_names/jasa.csv" = "libreoffice/jasa.xlsx",
  "write.csv_without_names/npk.csv" = "libreoffice/npk.ods",
  "write.csv_without_names/sleep.csv" = "libreoffice/sleep.ods")

rows <- list()
file <- ""  # the table that is open
note <- function(command, source, figures) {
  for (form in c(file, workbooks[names(workbooks) == file])) {
    rows[[length(rows) + 1]] <<- data.frame(file = form, command, result = names(figures),
                                            value = sprintf("%.17g", figures), source, row.names = NULL)
  }
}

readers <- list(
  write.csv = function(file) read.csv(file, row.names = 1, check.names = FALSE),
  write.csv_without_names = read.csv,
  write.csv2 = function(file) read.csv2(file, row.names = 1),
  write.table = read.table, write.table_without_quotes = function(file) read.table(file, header = TRUE),
  write.table_tabs = read.delim)
table_of <- function(name) {
  file <<- name
  readers[[dirname(name)]](file.path("../tables", name))
}

# The values and groups of a formula, the groups in the order in which they come first or in the order given.
in_order <- function(groups, levels = NULL) factor(groups, if (is.null(levels)) unique(groups) else levels)
frame_of <- function(formula, data, levels) {
  frame <- setNames(model.frame(formula, data, na.action = na.omit), c("y", "g"))
  frame$g <- in_order(frame$g, levels)
  frame[!is.na(frame$g), ]
}
tie_sum <- function(values) sum(table(values)^3 - table(values))
has_ties <- function(values) anyDuplicated(values) > 0
deparsed <- function(formula) paste(deparse(formula, width.cutoff = 200), collapse = "")

# Two independent samples: the formula's groups in their order.
mann_whitney <- function(command, formula, data, levels = NULL, alternative = "two.sided") {
  frame <- frame_of(formula, data, levels)
  n <- unname(c(table(frame$g)))
  test <- wilcox.test(y ~ g, frame, alternative = alternative, exact = FALSE)
  W <- unname(test$statistic)
  U <- switch(alternative, two.sided = max(W, prod(n) - W), greater = W, less = prod(n) - W)
  sides <- if (alternative == "two.sided") 2 else 1
  if (prod(n) >= 50000) {
    p <- test$p.value
    source <- "wilcox.test(FORMULA, exact = FALSE)"
  } else if (has_ties(frame$y)) {
    # The exact distribution as if there were no ties; a half counts from the odd number beside it.
    p <- min(1, sides * pwilcox(round(U + 1) - 2, n[1], n[2], lower.tail = FALSE))
    source <- "wilcox.test(FORMULA)$statistic, pwilcox"
  } else {
    p <- wilcox.test(y ~ g, frame, alternative = alternative, exact = TRUE)$p.value
    source <- "wilcox.test(FORMULA, exact = TRUE)"
  }
  note(command, sub("FORMULA", deparsed(formula), source), c(u = U, df.0 = n[1], df.1 = n[2], p = p))
}

# The share of all ways to give the ranks a sign that have a sum of positive ranks of at most T: exact with ties, too.
signed_rank_share <- function(ranks, T) {
  doubled <- as.integer(round(2 * ranks))
  share <- 1
  for (rank in doubled) share <- (c(share, rep(0, rank)) + c(rep(0, rank), share)) / 2
  sum(share[seq_len(floor(2 * T) + 1)])
}

# Pairs; the differences in seven digits, so that those that are equal in the table are equal. R leaves differences of
# zero out, as --ignore-ties does; without it the program ranks them, and they count for neither side.
wilcoxon <- function(command, x, y, alternative = "two.sided") {
  complete <- !is.na(x) & !is.na(y)
  d <- signif(x[complete] - y[complete], 7)
  if (grepl("--ignore-ties", command)) d <- d[d != 0]
  n <- length(d)
  ranks <- rank(abs(d))
  sums <- c(sum(ranks[d > 0]), sum(ranks[d < 0]))
  T <- switch(alternative, two.sided = min(sums), greater = sums[2], less = sums[1])
  test <- wilcox.test(d, alternative = alternative, exact = !has_ties(abs(d)) && all(d != 0), correct = FALSE)
  stopifnot(any(d == 0) || sums[1] == test$statistic)
  if (sum(complete) > 50) {
    stopifnot(all(d != 0))
    variance <- n * (n + 1) * (2 * n + 1) / 24 - tie_sum(abs(d)) / 48
    figures <- c(z = abs(T - n * (n + 1) / 4) / sqrt(variance), p = test$p.value)
    source <- "wilcox.test(x, y, paired = TRUE, exact = FALSE, correct = FALSE)"
  } else if (has_ties(abs(d)) || any(d == 0)) {
    sides <- if (alternative == "two.sided") 2 else 1
    figures <- c(t = T, p = min(1, sides * signed_rank_share(ranks, T)))
    source <- "rank(abs(x - y)) and all ways to give it signs"
  } else {
    figures <- c(t = T, p = test$p.value)
    source <- "wilcox.test(x, y, paired = TRUE, exact = TRUE)"
  }
  of_sign <- function(name, these) {
    setNames(c(sum(ranks[these]), sum(these), if (any(these)) median(ranks[these]) else 0),
             paste0(name, c(".sum", ".n", ".median")))
  }
  note(command, source, c(figures, n = n, of_sign("positive", d > 0), of_sign("negative", d < 0)))
}

sign_test <- function(command, x, y, alternative = "two.sided") {
  complete <- !is.na(x) & !is.na(y)
  d <- sign(x[complete] - y[complete])
  positive <- sum(d > 0); negative <- sum(d < 0)
  p <- binom.test(positive, positive + negative, alternative = alternative)$p.value
  note(command, "binom.test(sum(x > y), sum(x != y))",
       c(positive = positive, neither = sum(d == 0), negative = negative, p = p))
}

spearman <- function(command, x, y, alternative = "two.sided") {
  complete <- !is.na(x) & !is.na(y)
  x <- x[complete]; y <- y[complete]
  n <- length(x)
  rs <- cor(x, y, method = "spearman")
  source <- "cor(x, y, method = \"spearman\")"
  if (has_ties(x) || has_ties(y)) {
    # The program divides the correction for ties by n, not by 12.
    K <- (n^3 - n) / 6; Tx <- tie_sum(x) / n; Ty <- tie_sum(y) / n
    rs <- (K - sum((rank(x) - rank(y))^2) - Tx - Ty) / sqrt((K - 2 * Ty) * (K - 2 * Tx))
    source <- "rank(x), rank(y)"
  }
  figures <- c(rs = rs, df.0 = n, z = rs * sqrt(n - 1))
  # Above seven pairs the program's series is another one than R's.
  if (n <= 7 && !has_ties(x) && !has_ties(y)) {
    test <- cor.test(x, y, method = "spearman", exact = TRUE, alternative = alternative)
    figures <- c(figures, p = test$p.value)
  }
  note(command, source, figures)
}

mood <- function(command, formula, data, levels = NULL) {
  frame <- frame_of(formula, data, levels)
  M <- median(frame$y)
  counts <- rbind(table(frame$g[frame$y > M]), table(frame$g[frame$y <= M]))
  pearson <- chisq.test(counts, correct = FALSE)
  G <- 2 * sum(ifelse(counts == 0, 0, counts * log(counts / pearson$expected)))
  df <- unname(pearson$parameter)
  figures <- c(grandMedian = M, setNames(counts[1, ], paste0("above.", seq_len(df + 1) - 1)),
               setNames(counts[2, ], paste0("notAbove.", seq_len(df + 1) - 1)), df.0 = df,
               chiSquare = unname(pearson$statistic), p = pearson$p.value, logLikelihood = G,
               logLikelihoodP = pchisq(G, df, lower.tail = FALSE))
  if (df == 1) {
    yates <- chisq.test(counts, correct = TRUE)
    figures <- c(figures, yates = unname(yates$statistic), yatesP = yates$p.value)
  }
  note(command, "chisq.test(table(y > median(y), g))", figures)
}

kruskal <- function(command, formula, data) {
  frame <- model.frame(formula, data, na.action = na.omit)
  test <- kruskal.test(formula, frame)
  H <- unname(test$statistic); N <- nrow(frame); k <- unname(test$parameter) + 1
  F <- (N - k) * H / ((N - H - 1) * (k - 1))
  # The program's second degrees of freedom are N - k - 1.
  note(command, sprintf("kruskal.test(%s)", deparsed(formula)),
       c(chiSquare = H, df.0 = k - 1, p = test$p.value, f = F, fDf.0 = k - 1, fDf.1 = N - k - 1,
         fP = pf(F, k - 1, N - k - 1, lower.tail = FALSE)))
}

friedman_figures <- function(test, values) {
  b <- nrow(values); k <- ncol(values)
  R <- colSums(t(apply(values, 1, rank)))
  # F is formed of the statistic without the correction for ties.
  X <- 12 * sum(R^2) / (k * b * (k + 1)) - 3 * (k + 1) * b
  F <- (b - 1) * X / ((k - 1) * b - X)
  c(chiSquare = unname(test$statistic), df.0 = k - 1, p = test$p.value, f = F, fDf.0 = k - 1,
    fDf.1 = (k - 1) * (b - 1), fP = pf(F, k - 1, (k - 1) * (b - 1), lower.tail = FALSE))
}

friedman <- function(command, formula, data) {
  names <- all.vars(formula)
  test <- friedman.test(formula, data)
  values <- tapply(data[[names[1]]], list(data[[names[3]]], data[[names[2]]]), sum)
  note(command, sprintf("friedman.test(%s)", deparsed(formula)), friedman_figures(test, values))
}

friedman_wide <- function(command, values) {
  values <- as.matrix(values)
  note(command, "friedman.test(matrix)", friedman_figures(friedman.test(values), values))
}

# Any number of categories; a cut sequence is one of TRUE and FALSE.
runs <- function(command, sequence, alternative = "two.sided") {
  sequence <- as.character(sequence[!is.na(sequence)])
  n <- as.numeric(table(sequence)); N <- sum(n)
  observed <- length(rle(sequence)$lengths)
  E <- (N * (N + 1) - sum(n^2)) / N
  V <- (sum(n^2) * (sum(n^2) + N * (N + 1)) - 2 * N * sum(n^3) - N^3) / (N^2 * (N - 1))
  z <- (abs(observed - E) - 0.5) / sqrt(V)
  stated <- switch(alternative, fewer = observed < E, more = observed > E, TRUE)
  p <- if (alternative == "two.sided") 2 * pnorm(-z) else if (stated) pnorm(-z) else pnorm(z)
  # The program forms 1 - Phi(z), which keeps few digits far out.
  note(command, "rle(sequence), pnorm", c(runs = observed, expected = E, z = z, if (z < 4) c(p = p)))
}
cut_runs <- function(command, values, at, ...) {
  values <- values[!is.na(values)]
  runs(command, (values > at)[values != at], ...)
}

# The values of a long table's groups, block by block.
by_block <- function(values, groups, blocks) tapply(values, list(blocks, in_order(groups)), sum)

data <- table_of("write.csv/airquality.csv")
mann_whitney("mann-whitney --y Ozone --by Month --groups 5,8 --missing omit", Ozone ~ Month, data, c(5, 8))
mann_whitney("mann-whitney --y Solar.R --by Month --groups 5,8 --missing omit --tails less", Solar.R ~ Month, data,
             c(5, 8), "less")
kruskal("kruskal-wallis --y Ozone --by Month --missing omit", Ozone ~ Month, data)
kruskal("kruskal-wallis --y Ozone --by Month --missing omit --where 'Month != 6' --where 'Wind < 12'", Ozone ~ Month,
        subset(data, Month != 6 & Wind < 12))
mood("median --y Ozone --by Month --missing omit", Ozone ~ Month, data)
spearman("spearman --y Ozone --x Temp --missing omit", data$Ozone, data$Temp)
cut_runs("runs --y Temp --cut median", data$Temp, median(data$Temp))
cut_runs("runs --y Ozone --cut median --missing omit", data$Ozone, median(data$Ozone, na.rm = TRUE))

data <- table_of("write.csv/anorexia.csv")
family <- subset(data, Treat == "FT")
wilcoxon("wilcoxon --y Postwt --x Prewt --where Treat=FT --tails greater", family$Postwt, family$Prewt, "greater")
behaviour <- subset(data, Treat == "CBT")
wilcoxon("wilcoxon --y Postwt --x Prewt --where Treat=CBT", behaviour$Postwt, behaviour$Prewt)
sign_test("sign --y Postwt --x Prewt --where 'Treat in FT,CBT'", c(family$Postwt, behaviour$Postwt),
          c(family$Prewt, behaviour$Prewt))
kruskal("kruskal-wallis --y Prewt --by Treat", Prewt ~ Treat, data)

data <- table_of("write.csv/barley.csv")
friedman("friedman --y yield --by variety --block site --where year=1931", yield ~ variety | site,
         subset(data, year == 1931))
wide <- with(subset(data, variety == "Manchuria"), by_block(yield, year, site))
wilcoxon("wilcoxon --y yield --by year --block site --where variety=Manchuria", wide[, 1], wide[, 2])
wide <- with(subset(data, variety == "Trebi"), by_block(yield, year, site))
sign_test("sign --y yield --by year --block site --where variety=Trebi", wide[, 1], wide[, 2])
wide <- with(subset(data, variety == "Peatland"), by_block(yield, year, site))
spearman("spearman --y yield --by year --block site --where variety=Peatland", wide[, 1], wide[, 2])
kruskal("kruskal-wallis --y yield --by site --where 'variety != No. 457'", yield ~ site,
        subset(data, variety != "No. 457"))

data <- table_of("write.csv/birthwt.csv")
mann_whitney("mann-whitney --y bwt --by smoke --tails greater", bwt ~ smoke, data, NULL, "greater")
mood("median --y bwt --by race", bwt ~ race, data)
mood("median --y bwt --by smoke", bwt ~ smoke, data)
kruskal("kruskal-wallis --y bwt --by race --where 'age >= 20'", bwt ~ race, subset(data, age >= 20))

data <- table_of("write.csv/cancer.csv")
spearman("spearman --y age --x meal.cal --missing omit", data$age, data$meal.cal)
mann_whitney("mann-whitney --y wt.loss --by sex --missing omit", wt.loss ~ sex, data)

data <- table_of("write.csv/chickwts.csv")
kruskal("kruskal-wallis --by feed", weight ~ feed, data)
mood("median --by feed", weight ~ feed, data)
mann_whitney("mann-whitney --by feed --groups casein,linseed --tails greater", weight ~ feed, data,
             c("casein", "linseed"), "greater")
mann_whitney("mann-whitney --by feed --groups meatmeal,horsebean", weight ~ feed, data, c("meatmeal", "horsebean"))

data <- table_of("write.csv/crimtab.csv")
friedman_wide("friedman --headers", data)
wilcoxon("wilcoxon --headers --y 172.72 --x 175.26 --ignore-ties", data[["172.72"]], data[["175.26"]])

data <- table_of("write.csv/discoveries.csv")
cut_runs("runs --cut median", data$x, median(data$x))
runs("runs --cut median --cut-equal above", data$x >= median(data$x))
runs("runs", data$x)

data <- table_of("write.csv/esoph.csv")
kruskal("kruskal-wallis --y ncases --by agegp", ncases ~ agegp, data)
kruskal("kruskal-wallis --y ncases --by agegp --where 'tobgp = 10-19'", ncases ~ agegp, subset(data, tobgp == "10-19"))
mann_whitney("mann-whitney --y ncontrols --by alcgp --groups 0-39g/day,120+", ncontrols ~ alcgp, data,
             c("0-39g/day", "120+"))
mood("median --y ncases --by alcgp", ncases ~ alcgp, data)

data <- table_of("write.csv/genotype.csv")
kruskal("kruskal-wallis --by Litter", Wt ~ Litter, data)
mood("median --by Mother", Wt ~ Mother, data)

data <- table_of("write.csv/immer.csv")
friedman("friedman --y Y1 --by Var --block Loc", Y1 ~ Var | Loc, data)
friedman("friedman --y Y2 --by Loc --block Var", Y2 ~ Loc | Var, data)
wilcoxon("wilcoxon --y Y1 --x Y2", data$Y1, data$Y2)
spearman("spearman --y Y1 --x Y2 --where Var=P --tails negative", data$Y1[data$Var == "P"],
         data$Y2[data$Var == "P"], "less")

data <- table_of("write.csv/InsectSprays.csv")
mood("median --by spray", count ~ spray, data)
mood("median --by spray --groups C,D", count ~ spray, data, c("C", "D"))
kruskal("kruskal-wallis --by spray", count ~ spray, data)

data <- table_of("write.csv/LakeHuron.csv")
cut_runs("runs --cut median", data$x, median(data$x))
cut_runs("runs --cut 580 --tails more", data$x, 580, "more")

data <- table_of("write.csv/LifeCycleSavings.csv")
spearman("spearman --y sr --x dpi", data$sr, data$dpi)
spearman("spearman --y sr --x ddpi --tails positive", data$sr, data$ddpi, "greater")

data <- table_of("write.csv/morley.csv")
kruskal("kruskal-wallis --y Speed --by Expt", Speed ~ Expt, data)
friedman("friedman --y Speed --by Expt --block Run", Speed ~ Expt | Run, data)
wide <- with(data, by_block(Speed, Expt, Run))
wilcoxon("wilcoxon --y Speed --by Expt --block Run --groups 1,5 --ignore-ties", wide[, "1"], wide[, "5"])

data <- table_of("write.csv/mtcars.csv")
mann_whitney("mann-whitney --y mpg --by am --groups 0,1 --tails less", mpg ~ am, data, 0:1, "less")
kruskal("kruskal-wallis --y mpg --by cyl", mpg ~ cyl, data)
spearman("spearman --y mpg --x wt --where am=1", data$mpg[data$am == 1], data$wt[data$am == 1])

data <- table_of("write.csv/nwtco.csv")
mann_whitney("mann-whitney --y age --by in.subcohort --groups TRUE,FALSE", age ~ in.subcohort, data, c(TRUE, FALSE))
kruskal("kruskal-wallis --y age --by stage --where in.subcohort=FALSE", age ~ stage, subset(data, !in.subcohort))

data <- table_of("write.csv/OrchardSprays.csv")
friedman("friedman --y decrease --by treatment --block rowpos", decrease ~ treatment | rowpos, data)
wide <- with(data, by_block(decrease, treatment, colpos))
wilcoxon("wilcoxon --y decrease --by treatment --block colpos --groups A,B --tails less", wide[, "A"], wide[, "B"],
         "less")

data <- table_of("write.csv/PlantGrowth.csv")
kruskal("kruskal-wallis --by group", weight ~ group, data)
mann_whitney("mann-whitney --by group --groups trt1,trt2", weight ~ group, data, c("trt1", "trt2"))

data <- table_of("write.csv/precip.csv")
cut_runs("runs --cut mean", data$x, mean(data$x))

data <- table_of("write.csv/presidents.csv")
cut_runs("runs --cut median --missing omit", data$x, median(data$x, na.rm = TRUE))
cut_runs("runs --cut mean --missing omit --tails fewer", data$x, mean(data$x, na.rm = TRUE), "fewer")

data <- table_of("write.csv/state.x77.csv")
spearman("spearman --y Murder --x 'Life Exp'", data$Murder, data[["Life Exp"]])
spearman("spearman --y Income --x 'HS Grad' --where 'Population >= 5000'", data$Income[data$Population >= 5000],
         data[["HS Grad"]][data$Population >= 5000])

data <- table_of("write.csv/survey.csv")
mann_whitney("mann-whitney --y Height --by Sex --missing omit --tails less", Height ~ Sex, data, c("Female", "Male"),
             "less")
kruskal("kruskal-wallis --y Pulse --by Smoke --missing omit --na NA", Pulse ~ Smoke, data)
mood("median --y Pulse --by Exer --missing omit", Pulse ~ Exer, data)
wilcoxon("wilcoxon --y Wr.Hnd --x NW.Hnd --missing omit --ignore-ties", data$Wr.Hnd, data$NW.Hnd)
sign_test("sign --y Wr.Hnd --x NW.Hnd --missing omit", data$Wr.Hnd, data$NW.Hnd)
runs("runs --y Sex", data$Sex)

data <- table_of("write.csv/VADeaths.csv")
friedman_wide("friedman", data)
sign_test("sign --y 'Rural Male' --x 'Urban Male'", data[["Rural Male"]], data[["Urban Male"]])
spearman("spearman --y 'Rural Male' --x 'Urban Female'", data[["Rural Male"]], data[["Urban Female"]])

data <- table_of("write.csv/warpbreaks.csv")
kruskal("kruskal-wallis --by tension", breaks ~ tension, data)
mann_whitney("mann-whitney --by wool", breaks ~ wool, data)
mood("median --by tension --where wool=A", breaks ~ tension, subset(data, wool == "A"))

data <- table_of("write.csv/WorldPhones.csv")
friedman_wide("friedman", data)
spearman("spearman --y Asia --x Africa", data$Asia, data$Africa)

data <- table_of("write.csv_without_names/cabbages.csv")
mann_whitney("mann-whitney --y VitC --by Cult", VitC ~ Cult, data)
kruskal("kruskal-wallis --y HeadWt --by Date", HeadWt ~ Date, data)

data <- table_of("write.csv_without_names/cats.csv")
mann_whitney("mann-whitney --y Bwt --by Sex --tails less", Bwt ~ Sex, data, NULL, "less")
spearman("spearman --y Bwt --x Hwt", data$Bwt, data$Hwt)

data <- table_of("write.csv_without_names/ChickWeight.csv")
kruskal("kruskal-wallis --y weight --by Diet --where Time=21", weight ~ Diet, subset(data, Time == 21))
grown <- subset(data, Chick != 44)
friedman("friedman --y weight --by Time --block Chick --missing omit", weight ~ Time | Chick, grown)

data <- table_of("write.csv_without_names/CO2.csv")
mann_whitney("mann-whitney --y uptake --by Type --tails greater", uptake ~ Type, data, NULL, "greater")
friedman("friedman --y uptake --by conc --block Plant", uptake ~ conc | Plant, data)
wide <- with(data, by_block(uptake, conc, Plant))
wilcoxon("wilcoxon --y uptake --by conc --block Plant --groups 500,1000 --tails less", wide[, "500"], wide[, "1000"],
         "less")
sign_test("sign --y uptake --by conc --block Plant --groups 500,675", wide[, "500"], wide[, "675"])
spearman("spearman --y uptake --by conc --block Plant --groups 95,1000", wide[, "95"], wide[, "1000"])

data <- table_of("write.csv_without_names/epil.csv")
wide <- with(data, by_block(y, period, subject))
wilcoxon("wilcoxon --y y --by period --block subject --groups 1,4 --ignore-ties", wide[, "1"], wide[, "4"])
progabide <- subset(data, trt == "progabide")
wide <- with(progabide, by_block(y, period, subject))
sign_test("sign --y y --by period --block subject --groups 1,4 --where trt=progabide", wide[, "1"], wide[, "4"])
friedman("friedman --y y --by period --block subject --where trt=progabide", y ~ period | subject, progabide)

data <- table_of("write.csv_without_names/geyser.csv")
cut_runs("runs --y waiting --cut median --tails more", data$waiting, median(data$waiting), "more")
spearman("spearman", data$waiting, data$duration)

data <- table_of("write.csv_without_names/infert.csv")
kruskal("kruskal-wallis --y age --by education", age ~ education, data)
mann_whitney("mann-whitney --y age --by education --groups '6-11yrs,12+ yrs'", age ~ education, data,
             c("6-11yrs", "12+ yrs"))
runs("runs --y parity", data$parity)

data <- table_of("write.csv_without_names/iris.csv")
mann_whitney("mann-whitney --y Sepal.Width --by Species --groups versicolor,virginica", Sepal.Width ~ Species, data,
             c("versicolor", "virginica"))
mood("median --y Sepal.Width --by Species", Sepal.Width ~ Species, data)
spearman("spearman --y Sepal.Length --x Petal.Length --where Species=virginica",
         data$Sepal.Length[data$Species == "virginica"], data$Petal.Length[data$Species == "virginica"])

data <- table_of("write.csv_without_names/jasa.csv")
later <- subset(data, as.Date(accept.dt) >= as.Date("1970-01-01"))
mann_whitney("mann-whitney --y age --by fustat --groups 0,1 --where 'accept.dt >= 1970-01-01'", age ~ fustat, later,
             0:1)
spearman("spearman --y accept.dt --x age", as.numeric(as.Date(data$accept.dt)), data$age)
spearman("spearman --y tx.date --x futime --missing omit", as.numeric(as.Date(data$tx.date)), data$futime)
mann_whitney("mann-whitney --y mscore --by reject --missing omit", mscore ~ reject, data)

data <- table_of("write.csv_without_names/mgus2.csv")
mann_whitney("mann-whitney --y age --by sex", age ~ sex, data)
mann_whitney("mann-whitney --y futime --by sex --groups F,M --tails greater", futime ~ sex, data, c("F", "M"),
             "greater")
mann_whitney("mann-whitney --y hgb --by sex --missing omit --where 'age > 80'", hgb ~ sex, subset(data, age > 80))

data <- table_of("write.csv_without_names/npk.csv")
mann_whitney("mann-whitney --y yield --by N", yield ~ N, data)
mann_whitney("mann-whitney --y yield --by K --groups 0,1 --where 'block in 1,2,3'", yield ~ K,
             subset(data, block <= 3), 0:1)

data <- table_of("write.csv_without_names/oats.csv")
kruskal("kruskal-wallis --y Y --by N", Y ~ N, data)
friedman("friedman --y Y --by N --block A:A --where V=Victory", Y ~ N | B, subset(data, V == "Victory"))

data <- table_of("write.csv_without_names/Pima.tr2.csv")
mann_whitney("mann-whitney --y bmi --by type --missing omit", bmi ~ type, data)
spearman("spearman --y bp --x glu --missing omit --where type=Yes", data$bp[data$type == "Yes"],
         data$glu[data$type == "Yes"])

data <- table_of("write.csv_without_names/shoes.csv")
wilcoxon("wilcoxon --tails less", data$A, data$B, "less")
sign_test("sign --y B --x A --tails greater", data$B, data$A, "greater")

data <- table_of("write.csv_without_names/sleep.csv")
wide <- with(data, by_block(extra, group, ID))
wilcoxon("wilcoxon --y extra --by group --block ID --ignore-ties", wide[, 1], wide[, 2])
sign_test("sign --y extra --by group --block ID --groups 2,1 --tails greater", wide[, 2], wide[, 1], "greater")
spearman("spearman --y extra --by group --block ID", wide[, 1], wide[, 2])

data <- table_of("write.csv_without_names/ToothGrowth.csv")
mann_whitney("mann-whitney --y len --by supp --groups OJ,VC", len ~ supp, data, c("OJ", "VC"))
kruskal("kruskal-wallis --y len --by dose", len ~ dose, data)
mood("median --y len --by supp --where 'dose <= 1'", len ~ supp, subset(data, dose <= 1))

data <- table_of("write.csv_without_names/women.csv")
spearman("spearman", data$height, data$weight)
cut_runs("runs --y weight --cut mean", data$weight, mean(data$weight))

data <- table_of("write.csv2/attitude.csv")
spearman("spearman --y rating --x complaints", data$rating, data$complaints)
wilcoxon("wilcoxon --y complaints --x privileges", data$complaints, data$privileges)
friedman_wide("friedman --y rating,raises,critical,advance", data[c("rating", "raises", "critical", "advance")])

data <- table_of("write.csv2/Cushings.csv")
kruskal("kruskal-wallis --y Pregnanetriol --by Type --groups a,b,c", Pregnanetriol ~ Type, subset(data, Type != "u"))
mann_whitney("mann-whitney --y Tetrahydrocortisone --by Type --groups a,b", Tetrahydrocortisone ~ Type, data,
             c("a", "b"))

data <- table_of("write.csv2/gehan.csv")
mann_whitney("mann-whitney --y time --by treat", time ~ treat, data)
wide <- with(data, by_block(time, treat, pair))
wilcoxon("wilcoxon --y time --by treat --block pair", wide[, "control"], wide[, "6-MP"])
sign_test("sign --y time --by treat --block pair --groups 6-MP,control --tails greater", wide[, "6-MP"],
          wide[, "control"], "greater")

data <- table_of("write.csv2/Loblolly.csv")
friedman("friedman --y height --by Seed --block age", height ~ Seed | age, data)

data <- transform(table_of("write.csv2/nhtemp.csv"), x = as.numeric(x))  # with points
cut_runs("runs --cut median", data$x, median(data$x))
cut_runs("runs --cut 51.05 --tails fewer", data$x, 51.05, "fewer")

data <- table_of("write.csv2/Orange.csv")
friedman("friedman --y circumference --by Tree --block age", circumference ~ Tree | age, data)
kruskal("kruskal-wallis --y circumference --by Tree", circumference ~ Tree, data)

data <- table_of("write.csv2/Puromycin.csv")
mann_whitney("mann-whitney --y rate --by state", rate ~ state, data)
mann_whitney("mann-whitney --y rate --by state --where 'conc > 0.05'", rate ~ state, subset(data, conc > 0.05))

data <- table_of("write.csv2/Rabbit.csv")
friedman("friedman --y BPchange --by Dose --block Animal --where Treatment=MDL", BPchange ~ Dose | Animal,
         subset(data, Treatment == "MDL"))
wide <- with(subset(data, Dose == 12.5), by_block(BPchange, Treatment, Animal))
wilcoxon("wilcoxon --y BPchange --by Treatment --block Animal --where Dose=12.5", wide[, "Control"], wide[, "MDL"])

data <- table_of("write.csv2/Theoph.csv")
kruskal("kruskal-wallis --y conc --by Subject", conc ~ Subject, data)
spearman("spearman --y conc --x Time --where Subject=1", data$conc[data$Subject == 1], data$Time[data$Subject == 1])

data <- table_of("write.csv2/trees.csv")
spearman("spearman --y Girth --x Volume", data$Girth, data$Volume)
cut_runs("runs --y Height --cut median", data$Height, median(data$Height))

data <- table_of("write.csv2/whiteside.csv")
mann_whitney("mann-whitney --y Gas --by Insul --tails greater", Gas ~ Insul, data, NULL, "greater")
spearman("spearman --y Temp --x Gas --where Insul=After --tails negative", data$Temp[data$Insul == "After"],
         data$Gas[data$Insul == "After"], "less")

data <- table_of("write.table/crabs.txt")
mann_whitney("mann-whitney --y BD --by sp --where sex=M", BD ~ sp, subset(data, sex == "M"))
wilcoxon("wilcoxon --y FL --x RW --where sp=O --where sex=F --ignore-ties", data$FL[data$sp == "O" & data$sex == "F"],
         data$RW[data$sp == "O" & data$sex == "F"])
sign_test("sign --y FL --x RW --where sp=B", data$FL[data$sp == "B"], data$RW[data$sp == "B"])

data <- table_of("write.table/hills.txt")
spearman("spearman --y time --x climb", data$time, data$climb)
spearman("spearman --y time --x dist --where 'A != Knock Hill'", data$time[rownames(data) != "Knock Hill"],
         data$dist[rownames(data) != "Knock Hill"])

data <- table_of("write.table/Indometh.txt")
friedman("friedman --y conc --by Subject --block time", conc ~ Subject | time, data)

data <- table_of("write.table/leuk.txt")
mann_whitney("mann-whitney --y time --by ag", time ~ ag, data)
spearman("spearman --y wbc --x time --where ag=present", data$wbc[data$ag == "present"],
         data$time[data$ag == "present"])

data <- table_of("write.table/painters.txt")
kruskal("kruskal-wallis --y Colour --by School", Colour ~ School, data)
friedman_wide("friedman --y Composition,Drawing,Colour,Expression", data[1:4])
wilcoxon("wilcoxon --y Drawing --x Colour --ignore-ties", data$Drawing, data$Colour)

data <- table_of("write.table/quakes.txt")
cut_runs("runs --y mag --cut 4.5", data$mag, 4.5)
runs("runs --y mag --cut 4.5 --cut-equal above", data$mag >= 4.5)
spearman("spearman --y mag --x stations", data$mag, data$stations)

data <- table_of("write.table/quine.txt")
mann_whitney("mann-whitney --y Days --by Eth", Days ~ Eth, data)
kruskal("kruskal-wallis --y Days --by Age --where Sex=M", Days ~ Age, subset(data, Sex == "M"))
mood("median --y Days --by Lrn", Days ~ Lrn, data)

data <- table_of("write.table/Rubber.txt")
spearman("spearman --y loss --x hard --tails negative", data$loss, data$hard, "less")

data <- table_of("write.table/singer.txt")
kruskal("kruskal-wallis --by voice.part", height ~ voice.part, data)
mann_whitney("mann-whitney --by voice.part --groups 'Bass 1,Bass 2'", height ~ voice.part, data,
             c("Bass 1", "Bass 2"))

data <- table_of("write.table/swiss.txt")
spearman("spearman --y Fertility --x Education", data$Fertility, data$Education)

data <- table_of("write.table/Traffic.txt")
wide <- with(data, by_block(y, year, day))
wilcoxon("wilcoxon --y y --by year --block day --ignore-ties", wide[, "1961"], wide[, "1962"])
sign_test("sign --y y --by year --block day", wide[, "1961"], wide[, "1962"])
runs("runs --y limit", data$limit)
runs("runs --y limit --where year=1961 --tails fewer", data$limit[data$year == 1961], "fewer")

data <- table_of("write.table/USJudgeRatings.txt")
friedman_wide("friedman", data)
wilcoxon("wilcoxon --y DMNR --x DILG --ignore-ties", data$DMNR, data$DILG)

data <- table_of("write.table/veteran.txt")
kruskal("kruskal-wallis --y time --by celltype", time ~ celltype, data)
mood("median --y time --by celltype --where trt=1", time ~ celltype, subset(data, trt == 1))

data <- table_of("write.table_tabs/faithful.tsv")
cut_runs("runs --cut mean", data$eruptions, mean(data$eruptions))

data <- table_of("write.table_tabs/kidney.tsv")
kruskal("kruskal-wallis --y time --by disease", time ~ disease, data)

data <- table_of("write.table_tabs/ovarian.tsv")
mann_whitney("mann-whitney --y age --by rx", age ~ rx, data)

data <- table_of("write.table_tabs/rock.tsv")
spearman("spearman --y area --x peri", data$area, data$peri)
friedman_wide("friedman --y area,peri,perm", data[c("area", "peri", "perm")])

data <- table_of("write.table_tabs/stackloss.tsv")
spearman("spearman --y stack.loss --x Air.Flow", data$stack.loss, data$Air.Flow)
cut_runs("runs --y stack.loss --cut median", data$stack.loss, median(data$stack.loss))

data <- table_of("write.table_without_quotes/cars.txt")
spearman("spearman --delimiter space", data$speed, data$dist)

data <- table_of("write.table_without_quotes/cement.txt")
spearman("spearman --delimiter space --y y --x x2", data$y, data$x2)

data <- table_of("write.table_without_quotes/petrol.txt")
kruskal("kruskal-wallis --delimiter space --y Y --by No", Y ~ No, data)

write.csv(do.call(rbind, rows), "tables.csv", row.names = FALSE)
