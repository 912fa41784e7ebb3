#include "adapters/calc/dialog_texts.hpp"

#include <algorithm>
#include <array>
#include <span>

namespace TBVNonPara::calc {

namespace {

bool isGerman(std::string_view language) {
    return language.starts_with("de");
}

// clang-format off
constexpr DialogTexts english{
    .title = "Nonparametric Tests",
    .test = "~Test:",
    .tests = {"Mann-Whitney U test", "Wilcoxon paired-sample test", "Spearman rank correlation", "Sign test",
              "Mood median test", "Friedman test", "Kruskal-Wallis test", "Wald-Wolfowitz runs test"},
    .alternative = "~Alternative:",
    .firstRange = "~First range:",
    .secondRange = "~Second range:",
    .dataRange = "~Data range:",
    .groupRanges = "~Data ranges:",
    .groupingRange = "~Second range (optional):",
    .report = "Report to",
    .newSheet = "a new s~heet",
    .cell = "a ~cell:",
    .overwrite = "~Replace what the cells there hold",
    .labels = "~Labels in the first row",
    .descriptives = "D~escriptive tables",
    .ignoreTies = "Leave ~zero differences unranked",
    .pick = "Select",
    .pickTitle = "Select a range",
    .ok = "OK",
    .close = "Close",
    .cancel = "Cancel",
    .running = "Computing the test",
    .cancelled = "The test was cancelled; nothing was placed.",
    .severalAreas = "One block of columns, or several ranges separated by semicolons",
    .restart = "Start the office again to finish installing the nonparametric tests.",
};

constexpr DialogTexts german{
    .title = "Nichtparametrische Tests",
    .test = "~Test:",
    .tests = {"Mann-Whitney-U-Test", "Wilcoxon-Test für Paare", "Rangkorrelation nach Spearman",
              "Vorzeichentest", "Mediantest nach Mood", "Friedman-Test", "Kruskal-Wallis-Test",
              "Iterationstest nach Wald-Wolfowitz"},
    .alternative = "~Alternative:",
    .firstRange = "~Erster Bereich:",
    .secondRange = "~Zweiter Bereich:",
    .dataRange = "~Datenbereich:",
    .groupRanges = "~Datenbereiche:",
    .groupingRange = "~Zweiter Bereich (freigestellt):",
    .report = "Bericht auf",
    .newSheet = "ein neues ~Blatt",
    .cell = "eine Ze~lle:",
    .overwrite = "~Vorhandene Inhalte dort ersetzen",
    .labels = "Beschriftun~g in der ersten Zeile",
    .descriptives = "Besch~reibende Tabellen",
    .ignoreTies = "~Nulldifferenzen ohne Rang lassen",
    .pick = "Auswählen",
    .pickTitle = "Bereich auswählen",
    .ok = "OK",
    .close = "Schließen",
    .cancel = "Abbrechen",
    .running = "Der Test wird berechnet",
    .cancelled = "Der Test wurde abgebrochen; es wurde nichts eingefügt.",
    .severalAreas = "Ein Block von Spalten oder mehrere Bereiche, durch Semikolon getrennt",
    .restart = "Bitte das Office neu starten, um die Installation der nichtparametrischen Tests abzuschließen.",
};

struct AlternativeTexts {
    Alternatives samples, correlation, differences, codes, runs;
};

constexpr AlternativeTexts englishAlternatives{
    .samples = {"the two differ", "first tends to be larger", "first tends to be smaller"},
    .correlation = {"the two are correlated", "they rise together", "one falls as the other rises"},
    .differences = {"the two differ", "first mostly larger than second", "first mostly smaller than second"},
    .codes = {"plus and minus differ in number", "more plus than minus", "fewer plus than minus"},
    .runs = {"the order is not random", "fewer runs than expected", "more runs than expected"},
};

constexpr AlternativeTexts germanAlternatives{
    .samples = {"beide unterscheiden sich", "erster tendenziell größer", "erster tendenziell kleiner"},
    .correlation = {"beide hängen zusammen", "beide steigen gemeinsam", "einer fällt, wenn der andere steigt"},
    .differences = {"beide unterscheiden sich", "erster meist größer als zweiter", "erster meist kleiner als zweiter"},
    .codes = {"Plus und Minus sind verschieden häufig", "mehr Plus als Minus", "weniger Plus als Minus"},
    .runs = {"die Reihenfolge ist nicht zufällig", "weniger Iterationen als erwartet", "mehr Iterationen als erwartet"},
};

struct ErrorText {
    std::int32_t number;
    std::string_view english;
    std::string_view german;
};

/// A percent sign stands for the cell that the error names.
constexpr auto errorTexts = std::to_array<ErrorText>({
    {tbvNPBadOutputRange, "This is no cell of the document.", "Das ist keine Zelle des Dokuments."},
    {tbvNPBadYRange, "This is no range of the document.", "Das ist kein Bereich des Dokuments."},
    {tbvNPBadXRange, "This is no range of the document.", "Das ist kein Bereich des Dokuments."},
    {tbvNPNoYRange, "Name the range that holds the data.", "Bitte den Bereich mit den Daten angeben."},
    {tbvNPNoXRange, "This test needs a second range.", "Dieser Test braucht einen zweiten Bereich."},
    {tbvNPUnequalPairs, "The two ranges must have the same number of rows.",
     "Beide Bereiche müssen gleich viele Zeilen haben."},
    {tbvNPTooFewGroups, "This test needs two columns or more, or several ranges.",
     "Dieser Test braucht mindestens zwei Spalten oder mehrere Bereiche."},
    {tbvNPTooFewRows, "There must be at least two rows of data.", "Es müssen mindestens zwei Zeilen Daten sein."},
    {tbvNPYRangeColumns, "This test takes one column here.", "Dieser Test nimmt hier nur eine Spalte."},
    {tbvNPXRangeColumns, "The second range must be one column.", "Der zweite Bereich muss eine Spalte sein."},
    {tbvNPInvalidSignSymbols, "Every cell must hold 1, -1 or 0.", "Jede Zelle muss 1, -1 oder 0 enthalten."},
    {tbvNPTextInData, "% holds a text; every cell of the data must be a number.",
     "% enthält einen Text; jede Zelle der Daten muss eine Zahl sein."},
    {tbvNPBooleanInData, "% holds TRUE or FALSE; every cell of the data must be a number.",
     "% enthält WAHR oder FALSCH; jede Zelle der Daten muss eine Zahl sein."},
    {tbvNPErrorInData, "% holds an error; correct it or leave the cell out.",
     "% enthält einen Fehler; bitte korrigieren oder die Zelle auslassen."},
    {tbvNPBlankInData, "% is blank; every cell of the data must be a number.",
     "% ist leer; jede Zelle der Daten muss eine Zahl sein."},
    {tbvNPNoData, "% holds no data.", "% enthält keine Daten."},
    {tbvNPOutputOffSheet, "The report does not fit there; choose a cell further up or to the left.",
     "Der Bericht passt dort nicht; bitte eine Zelle weiter oben oder links wählen."},
    {tbvNPOutputOccupied, "% already holds a value; choose another place or let it be replaced.",
     "% enthält schon einen Wert; bitte eine andere Stelle wählen oder ersetzen lassen."},
    {tbvNPNoContingencyTable, "The groups do not differ in how their values lie about the common median.",
     "Die Werte der Gruppen liegen nicht verschieden um den gemeinsamen Median."},
    {6, "The values leave nothing to compute, for example because they are all equal.",
     "Mit diesen Werten lässt sich nichts berechnen, zum Beispiel weil alle gleich sind."},
    {11, "The values leave nothing to compute, for example because they are all equal.",
     "Mit diesen Werten lässt sich nichts berechnen, zum Beispiel weil alle gleich sind."},
    {7, "There is not enough memory for this many cells.", "Der Speicher reicht für so viele Zellen nicht."},
});
// clang-format on

/// The first word of a description is the cell that it is about.
std::string withCell(std::string_view text, const std::string& description) {
    std::string result(text);
    if (const std::size_t place = result.find('%'); place != std::string::npos) {
        result.replace(place, 1, description.substr(0, description.find(' ')));
    }
    return result;
}

}  // namespace

const DialogTexts& dialogTexts(std::string_view language) {
    return isGerman(language) ? german : english;
}

const Alternatives& alternativesOf(TBVNPMethod method, bool secondRange, std::string_view language) {
    const AlternativeTexts& texts = isGerman(language) ? germanAlternatives : englishAlternatives;
    switch (method) {
        case tbvNPSpearman:
            return texts.correlation;
        case tbvNPWilcoxon:
            return texts.differences;
        case tbvNPSign:
            return secondRange ? texts.differences : texts.codes;
        case tbvNPWWRuns:
            return texts.runs;
        default:
            return texts.samples;
    }
}

std::string plainWords(std::int32_t number, const std::string& description, std::string_view language) {
    const auto* found = std::ranges::find(errorTexts, number, &ErrorText::number);
    if (found != std::ranges::end(errorTexts)) {
        return withCell(isGerman(language) ? found->german : found->english, description);
    }
    if (!description.empty()) {
        return description;
    }
    return (isGerman(language) ? "Fehler " : "Error ") + std::to_string(number);
}

}  // namespace TBVNonPara::calc
