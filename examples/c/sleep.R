# Hours of sleep after each of two drugs, by the library for C.
dyn.load(commandArgs(trailingOnly = TRUE))
mann_whitney <- function(first, second, level = 0.95)
    .Call("mann_whitney", as.double(first), as.double(second), as.double(level))

drugs <- split(sleep$extra, sleep$group)
json <- mann_whitney(drugs[[1]], c(drugs[[2]], NA))
cat(regmatches(json, regexpr('"missing": [0-9]+', json)), "\n")
cat(regmatches(json, regexpr('"superiority": [^}]*}', json)), "\n")
cat(tryCatch(mann_whitney(drugs[[1]], numeric()), error = conditionMessage), "\n")
