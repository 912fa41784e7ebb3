# Writes contingency.csv: Pearson's chi-square of contingency tables, for 2 x 2 tables with Yates' correction too.
# Run it in this folder: R --vanilla --quiet < contingency.R
#
# table: its rows separated by bars, the counts of a row by blanks.
options(digits = 17, warn = -1)

tables <- list(
  rbind(c(10, 20), c(30, 40)), rbind(c(3, 1), c(1, 3)), rbind(c(12, 5), c(7, 7)), rbind(c(0, 5), c(5, 0)),
  rbind(c(1, 2), c(2, 1)), rbind(c(8, 0), c(1, 9)),
  rbind(c(5, 9, 1), c(7, 2, 8)), rbind(c(0, 1, 3), c(3, 2, 0)), rbind(c(10, 20, 30), c(20, 40, 60)),
  rbind(c(762, 327, 468), c(484, 239, 477)), rbind(c(4, 2, 9, 1), c(3, 8, 0, 5), c(6, 6, 2, 7))
)

rows <- list()
note <- function(table, result, value) {
  text <- paste(apply(table, 1, function(row) paste(sprintf("%.17g", row), collapse = " ")), collapse = "|")
  rows[[length(rows) + 1]] <<- data.frame(table = text, result, value = sprintf("%.17g", value))
}
for (table in tables) {
  fit <- chisq.test(table, correct = FALSE)
  note(table, "chi_square", unname(fit$statistic))
  note(table, "chi_square_p", fit$p.value)
  if (all(dim(table) == 2)) {
    yates <- chisq.test(table, correct = TRUE)
    note(table, "yates", unname(yates$statistic))
    note(table, "yates_p", yates$p.value)
  }
}
write.csv(do.call(rbind, rows), "contingency.csv", row.names = FALSE, quote = FALSE)
