# Writes the example files beside it: R --vanilla --quiet < make_examples.R
# Data sets that R does not bring are written out here; README.md names every source.

save <- function(name, columns) {
  longest <- max(lengths(columns))
  padded <- lapply(columns, function(column) c(as.character(column), rep("", longest - length(column))))
  lines <- do.call(paste, c(unname(padded), sep = ","))
  writeLines(c(paste(names(columns), collapse = ","), lines), paste0(name, ".csv"))
}

save("permeability", list(
  Term = c(0.80, 0.83, 1.89, 1.04, 1.45, 1.38, 1.91, 1.64, 0.73, 1.46),
  Early = c(1.15, 0.88, 0.90, 0.74, 1.21)))

weights <- split(PlantGrowth$weight, PlantGrowth$group)
save("plants", list(Control = weights$ctrl, Treated = weights$trt2))

ozone <- split(airquality$Ozone, airquality$Month)
save("ozone", lapply(list(May = ozone[["5"]], August = ozone[["8"]]), function(month) month[!is.na(month)]))

save("depression", list(
  First = c(1.83, 0.50, 1.62, 2.48, 1.68, 1.88, 1.55, 3.06, 1.30),
  Second = c(0.878, 0.647, 0.598, 2.05, 1.06, 1.29, 1.06, 3.14, 1.29)))

hours <- split(sleep$extra, sleep$group)
save("sleep", list(Drug1 = hours[["1"]], Drug2 = hours[["2"]]))

save("tuna", list(
  Lightness = c(44.4, 45.9, 41.9, 53.3, 44.7, 44.1, 50.7, 45.2, 60.1),
  Panel = c(2.6, 3.1, 2.5, 5.0, 3.6, 4.0, 5.2, 2.8, 3.8)))

eighths <- function(whole, part) whole + part / 8
crossed <- eighths(c(23, 12, 21, 22, 19, 21, 22, 20, 18, 21, 23, 21, 22, 23, 12), c(4, 0, 0, 0, 1, 4, 1, 3, 2, 5, 2, 0, 1, 0, 0))
self <- eighths(c(17, 20, 20, 20, 18, 18, 18, 15, 16, 18, 16, 18, 12, 15, 18), c(3, 3, 0, 0, 3, 5, 5, 2, 4, 0, 2, 0, 6, 4, 0))
save("maize", list(Crossed = crossed, Self = self))
save("maize_signs", list(Sign = sign(crossed - self)))

save("sprays", split(InsectSprays$count, InsectSprays$spray))
save("chicks", split(chickwts$weight, chickwts$feed))

save("rounding", list(
  RoundOut = c(5.40, 5.85, 5.20, 5.55, 5.90, 5.45, 5.40, 5.45, 5.25, 5.85, 5.25, 5.65, 5.60, 5.05, 5.50, 5.45, 5.55, 5.45, 5.50, 5.65, 5.70, 6.30),
  NarrowAngle = c(5.50, 5.70, 5.60, 5.50, 5.85, 5.55, 5.40, 5.50, 5.15, 5.80, 5.20, 5.55, 5.35, 5.00, 5.50, 5.55, 5.55, 5.50, 5.45, 5.60, 5.65, 6.30),
  WideAngle = c(5.55, 5.75, 5.50, 5.40, 5.70, 5.60, 5.35, 5.35, 5.00, 5.70, 5.10, 5.45, 5.45, 4.95, 5.40, 5.50, 5.35, 5.55, 5.25, 5.40, 5.55, 6.25)))

level <- as.numeric(LakeHuron)
save("lake_levels", list(Year = as.numeric(time(LakeHuron)), Level = level))
save("huron", list(Level = ifelse(level > median(level), "above", "below")))

# Tables in long form, as R writes them.
write.csv(chickwts, "feeds.csv")
write.csv(airquality, "air_quality.csv", row.names = FALSE)
write.csv(sleep, "sleep_long.csv", row.names = FALSE)
