# Writes the tables of the folders beside it: R --vanilla --quiet < make_tables.R
# A folder is named after the call that writes its files; README.md says where the data come from.
# make_workbooks.py makes workbooks of some of them.
library(MASS)
library(survival)
library(lattice)

write_each <- function(folder, ending, write, tables) {
  dir.create(folder, showWarnings = FALSE)
  for (name in names(tables)) write(tables[[name]], file.path(folder, paste0(name, ending)))
}

# Below an empty header the names of the rows; a series or a named vector becomes a column "x".
write_each("write.csv", ".csv", write.csv, list(
  airquality = airquality, anorexia = anorexia, barley = barley, birthwt = birthwt, cancer = head(lung, 120),
  chickwts = chickwts, crimtab = crimtab, discoveries = discoveries, esoph = esoph, genotype = genotype, immer = immer,
  InsectSprays = InsectSprays, LakeHuron = LakeHuron, LifeCycleSavings = LifeCycleSavings, morley = morley,
  mtcars = mtcars, nwtco = nwtco[1:120, c("stage", "age", "in.subcohort")], OrchardSprays = OrchardSprays,
  PlantGrowth = PlantGrowth, precip = precip, presidents = presidents, state.x77 = state.x77,
  survey = head(survey, 100), VADeaths = VADeaths, warpbreaks = warpbreaks, WorldPhones = WorldPhones))

without_names <- function(table, file) write.csv(table, file, row.names = FALSE)
write_each("write.csv_without_names", ".csv", without_names, list(
  cabbages = cabbages, cats = cats, ChickWeight = subset(ChickWeight, as.integer(as.character(Chick)) > 20),
  CO2 = CO2, epil = epil[, c("y", "trt", "base", "age", "subject", "period")], geyser = head(geyser, 120),
  infert = head(infert, 150), iris = iris, jasa = head(jasa, 60),
  mgus2 = head(mgus2[c("age", "sex", "hgb", "futime")], 500), npk = npk, oats = oats,
  Pima.tr2 = tail(Pima.tr2, 100), shoes = shoes, sleep = sleep,
  ToothGrowth = ToothGrowth, women = women))

# Semicolons between fields and decimal commas; only the numbers of a series keep their points.
write_each("write.csv2", ".csv", write.csv2, list(
  attitude = attitude, Cushings = Cushings, gehan = gehan, Loblolly = Loblolly, nhtemp = nhtemp, Orange = Orange,
  Puromycin = Puromycin, Rabbit = Rabbit, Theoph = Theoph, trees = trees, whiteside = whiteside))

# Blanks between fields, and a header that is one field shorter than the rows.
write_each("write.table", ".txt", write.table, list(
  crabs = crabs, hills = hills, Indometh = Indometh, leuk = leuk,
  painters = painters, quakes = head(quakes, 150), quine = quine, Rubber = Rubber, singer = singer,
  swiss = swiss, Traffic = Traffic, USJudgeRatings = USJudgeRatings, veteran = veteran))

with_tabs <- function(table, file) write.table(table, file, sep = "\t", quote = FALSE, row.names = FALSE)
write_each("write.table_tabs", ".tsv", with_tabs, list(
  faithful = head(faithful, 100), kidney = kidney, ovarian = ovarian, rock = rock, stackloss = stackloss))

# Nothing in such a file says that the blanks divide.
without_quotes <- function(table, file) write.table(table, file, quote = FALSE)
write_each("write.table_without_quotes", ".txt", without_quotes, list(cars = cars, cement = cement, petrol = petrol))
