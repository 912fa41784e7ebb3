#include "adapters/calc/dialog_texts.hpp"

#include <algorithm>
#include <array>

#include "tbvnonpara/core/display_width.hpp"

namespace TBVNonPara::calc {

namespace {

// clang-format off
constexpr DialogTexts english{
    .title = "Nonparametric Tests",
    .test = "~Test:",
    .tests = {"Mann-Whitney U test", "Wilcoxon paired-sample test", "Spearman rank correlation", "Sign test",
              "Mood median test", "Friedman test", "Kruskal-Wallis test", "Wald-Wolfowitz runs test"},
    .sheets = {"Mann-Whitney", "Wilcoxon", "Spearman", "Sign test", "Mood median", "Friedman", "Kruskal-Wallis",
               "Runs test"},
    .alternative = "~Alternative:",
    .firstRange = "~First range:",
    .secondRange = "~Second range:",
    .dataRange = "~Data range:",
    .groupRanges = "~Data ranges:",
    .groupingRange = "~Second range (optional):",
    .groupsInColumn = "~Groups in one column",
    .valueRange = "Val~ue range:",
    .groupRange = "Gr~oup range:",
    .blockRange = "~Block range:",
    .groupTicks = "Groups (tic~k):",
    .twoGroupTicks = "Groups (tic~k two):",
    .moveUp = "Move the group up",
    .moveDown = "Move the group down",
    .tickTwo = "Tick two groups.",
    .tickSeveral = "Tick two groups or more.",
    .chooseGroupRange = "Choose the range that names the group of each value.",
    .chooseBlockRange = "Choose the range that says which values belong together.",
    .noRange = "% is no range of this document; correct its address.",
    .oneColumn = "Choose one column.",
    .visibleRows = "~Visible rows only (% of % are filtered out or hidden)",
    .missing = "Leave out ~missing values (%)",
    .units = {"% of % values", "% of % pairs", "% of % blocks", "% of % values"},
    .unnamedRows = "% of % rows without a name",
    .splitValues = "Tick \"Groups in one column\".",
    .omitMissing = "Tick \"Leave out missing values\".",
    .report = "Report to",
    .newSheet = "a new s~heet",
    .cell = "a ~cell:",
    .overwrite = "~Replace what the cells there hold",
    .labels = "~Labels in the first row",
    .descriptives = "D~escriptive tables",
    .ignoreTies = "Leave ~zero differences unranked",
    .details = "Effect sizes, ~intervals and comparisons",
    .confidence = "Co~nfidence (%):",
    .adjustment = "Ad~justment of P:",
    .adjustments = {"Holm", "Bonferroni", "Benjamini-Hochberg", "none"},
    .chooseConfidence = "Choose a confidence from 50 to 99.9 per cent.",
    .withoutDetails = "The report was placed, but without effect sizes, intervals and comparisons: %",
    .detailsCancelled = "The report was placed; its effect sizes, intervals and comparisons were cancelled.",
    .picture = "~Picture of the data",
    .withoutPicture = "The report was placed, but without a picture: %",
    .withoutBoth = "The report was placed, but without its details and a picture: %",
    .besideCancelled = "The report was placed; what was to stand on its sheet of details was cancelled.",
    .live = "Keep figures live: they follo~w the data",
    .notLive = "Keep figures live (not %)",
    .liveObstacles = {"with groups in one column", "with visible rows only", "with zero differences unranked",
                      "with values missing in a sequence"},
    .withoutLive = "The report was placed, but its figures do not follow the data: %",
    .liveFailures = {"a formula takes one column for each variable.", "the report stands on its own data.",
                     "Calc computes here only when it is told to (Data > Calculate > AutoCalculate)."},
    .partlyLive = "The report was placed. No formula gives the same for these figures, so they stay numbers: %.",
    .pickTitle = "Select a range",
    .ok = "OK",
    .close = "Close",
    .cancel = "Cancel",
    .help = "Help",
    .noBrowser = "No program could open the page about this test:",
    .running = "Computing the test",
    .countingDetails = "Computing effect sizes, intervals and exact probabilities",
    .cancelled = "The test was cancelled; nothing was placed.",
    .rowsChanged = "Other rows are hidden now than before; check the choice of rows and press OK again.",
    .severalAreas = "One block of columns, or several ranges separated by semicolons",
    .restart = "Start the office again to finish installing the nonparametric tests.",
    .noReportHere = "The cursor stands in no report that can be repeated. Put it into a report that the dialog has "
                    "placed, and choose Test Again.",
    .rangesLost = "The test was not repeated: cells of its data, or their sheet, have been deleted. Choose the data "
                  "in the dialog.",
    .reportChanged = "Cells of this report were changed after it was placed. Replace the whole report?",
    .reportGrows = "The test was not repeated: its report needs more cells than before, and % holds a value. Clear "
                   "that cell or move it, and try again.",
    .notRepeated = "The test was not repeated: %",
};

constexpr DialogTexts german{
    .title = "Nichtparametrische Tests",
    .test = "~Test:",
    .tests = {"Mann-Whitney-U-Test", "Wilcoxon-Test für Paare", "Rangkorrelation nach Spearman",
              "Vorzeichentest", "Mediantest nach Mood", "Friedman-Test", "Kruskal-Wallis-Test",
              "Iterationstest nach Wald-Wolfowitz"},
    .sheets = {"Mann-Whitney", "Wilcoxon", "Spearman", "Vorzeichentest", "Mediantest", "Friedman",
               "Kruskal-Wallis", "Iterationstest"},
    .alternative = "~Alternative:",
    .firstRange = "~Erster Bereich:",
    .secondRange = "~Zweiter Bereich:",
    .dataRange = "~Datenbereich:",
    .groupRanges = "~Datenbereiche:",
    .groupingRange = "~Zweiter Bereich (freigestellt):",
    .groupsInColumn = "Gruppen in einer S~palte",
    .valueRange = "~Wertebereich:",
    .groupRange = "Gruppenbere~ich:",
    .blockRange = "Bl~ockbereich:",
    .groupTicks = "Gruppen (an~kreuzen):",
    .twoGroupTicks = "Gruppen (zwei an~kreuzen):",
    .moveUp = "Gruppe nach oben",
    .moveDown = "Gruppe nach unten",
    .tickTwo = "Bitte zwei Gruppen ankreuzen.",
    .tickSeveral = "Bitte zwei Gruppen oder mehr ankreuzen.",
    .chooseGroupRange = "Bitte den Bereich angeben, der die Gruppe jedes Werts nennt.",
    .chooseBlockRange = "Bitte den Bereich angeben, der sagt, welche Werte zusammengehören.",
    .noRange = "% ist kein Bereich des Dokuments.",
    .oneColumn = "Bitte eine einzige Spalte angeben.",
    .visibleRows = "Nur ~sichtbare Zeilen (% von % sind gefiltert oder ausgeblendet)",
    .missing = "~Fehlende Werte auslassen (%)",
    .units = {"% von % Werten", "% von % Paaren", "% von % Blöcken", "% von % Werten"},
    .unnamedRows = "% von % Zeilen ohne Namen",
    .splitValues = "Bitte „Gruppen in einer Spalte“ ankreuzen.",
    .omitMissing = "Bitte „Fehlende Werte auslassen“ ankreuzen.",
    .report = "Bericht auf",
    .newSheet = "ein neues ~Blatt",
    .cell = "eine Ze~lle:",
    .overwrite = "~Vorhandene Inhalte dort ersetzen",
    .labels = "Beschriftun~g in der ersten Zeile",
    .descriptives = "Besch~reibende Tabellen",
    .ignoreTies = "~Nulldifferenzen ohne Rang lassen",
    .details = "Effektgrößen, Intervalle und Vergleic~he",
    .confidence = "Konfidenznivea~u (%):",
    .adjustment = "Ad~justierung von P:",
    .adjustments = {"Holm", "Bonferroni", "Benjamini-Hochberg", "keine"},
    .chooseConfidence = "Bitte ein Konfidenzniveau von 50 bis 99,9 Prozent angeben.",
    .withoutDetails = "Der Bericht ist eingefügt, aber ohne Effektgrößen, Intervalle und Vergleiche: %",
    .detailsCancelled = "Der Bericht ist eingefügt; Effektgrößen, Intervalle und Vergleiche wurden abgebrochen.",
    .picture = "Diagra~mm der Daten",
    .withoutPicture = "Der Bericht ist eingefügt, aber ohne Diagramm: %",
    .withoutBoth = "Der Bericht ist eingefügt, aber ohne Einzelheiten und Diagramm: %",
    .besideCancelled = "Der Bericht ist eingefügt; was auf sein Blatt „Details“ kommen sollte, wurde abgebrochen.",
    .live = "Kennwerte als Formeln, die mitre~chnen",
    .notLive = "Kennwerte als Formeln (nicht %)",
    .liveObstacles = {"bei Gruppen in einer Spalte", "bei nur sichtbaren Zeilen", "bei Nulldifferenzen ohne Rang",
                      "bei fehlenden Werten einer Folge"},
    .withoutLive = "Der Bericht ist eingefügt, aber seine Kennwerte rechnen nicht mit: %",
    .liveFailures = {"Eine Formel nimmt für jede Variable nur eine Spalte.",
                     "Der Bericht steht auf seinen eigenen Daten.",
                     "Calc rechnet hier nur auf Befehl (Daten > Berechnen > Automatisch berechnen)."},
    .partlyLive = "Der Bericht ist eingefügt. Für diese Kennwerte ergibt keine Formel dasselbe, sie bleiben Zahlen: %.",
    .pickTitle = "Bereich auswählen",
    .ok = "OK",
    .close = "Schließen",
    .cancel = "Abbrechen",
    .help = "Hilfe",
    .noBrowser = "Kein Programm konnte die Seite über diesen Test öffnen:",
    .running = "Der Test wird berechnet",
    .countingDetails = "Effektgrößen, Intervalle und exakte Wahrscheinlichkeiten werden berechnet",
    .cancelled = "Der Test wurde abgebrochen; es wurde nichts eingefügt.",
    .rowsChanged = "Jetzt sind andere Zeilen ausgeblendet als vorher; bitte die Zeilenauswahl prüfen und noch "
                   "einmal auf OK drücken.",
    .severalAreas = "Ein Block von Spalten oder mehrere Bereiche, durch Semikolon getrennt",
    .restart = "Bitte das Office neu starten, um die Installation der nichtparametrischen Tests abzuschließen.",
    .noReportHere = "Der Zellcursor steht in keinem Bericht, der sich wiederholen lässt. Bitte eine Zelle eines "
                    "Berichts auswählen, den der Dialog eingefügt hat.",
    .rangesLost = "Der Test wurde nicht wiederholt: Zellen seiner Daten oder ihr Blatt sind gelöscht. Bitte die "
                  "Daten im Dialog neu auswählen.",
    .reportChanged = "Zellen dieses Berichts wurden geändert, seit er eingefügt wurde. Den ganzen Bericht ersetzen?",
    .reportGrows = "Der Test wurde nicht wiederholt: Sein Bericht braucht mehr Zellen als vorher, und % enthält schon "
                   "einen Wert. Bitte diese Zelle leeren oder verschieben.",
    .notRepeated = "Der Test wurde nicht wiederholt: %",
};

using Wording = std::array<std::string_view, 3>;

/// The names of the samples in place of percent signs.
struct AlternativeTexts {
    Wording samples, namedSamples, correlation, differences, namedDifferences, codes, runs;
};

constexpr AlternativeTexts englishAlternatives{
    .samples = {"the two differ", "first tends to be larger", "first tends to be smaller"},
    .namedSamples = {"the two differ", "% tends to be larger", "% tends to be smaller"},
    .correlation = {"the two are correlated", "they rise together", "one falls as the other rises"},
    .differences = {"the two differ", "first mostly larger than second", "first mostly smaller than second"},
    .namedDifferences = {"the two differ", "% mostly larger than %", "% mostly smaller than %"},
    .codes = {"plus and minus differ in number", "more plus than minus", "fewer plus than minus"},
    .runs = {"the order is not random", "fewer runs than expected", "more runs than expected"},
};

constexpr AlternativeTexts germanAlternatives{
    .samples = {"beide unterscheiden sich", "erster tendenziell größer", "erster tendenziell kleiner"},
    .namedSamples = {"beide unterscheiden sich", "% tendenziell größer", "% tendenziell kleiner"},
    .correlation = {"beide hängen zusammen", "beide steigen gemeinsam", "einer fällt, wenn der andere steigt"},
    .differences = {"beide unterscheiden sich", "erster meist größer als zweiter", "erster meist kleiner als zweiter"},
    .namedDifferences = {"beide unterscheiden sich", "% meist größer als %", "% meist kleiner als %"},
    .codes = {"Plus und Minus sind verschieden häufig", "mehr Plus als Minus", "weniger Plus als Minus"},
    .runs = {"die Reihenfolge ist nicht zufällig", "weniger Iterationen als erwartet", "mehr Iterationen als erwartet"},
};

/// A cause of an error in German; the English words are the library's.
struct GermanCause {
    Cause cause;
    std::string_view text;
};

/// A percent sign stands for the cell that the error names.
constexpr auto germanCauses = std::to_array<GermanCause>({
    {Cause::BadOutputRange, "Das ist keine Zelle des Dokuments."},
    {Cause::BadYRange, "Das ist kein Bereich des Dokuments."},
    {Cause::BadXRange, "Das ist kein Bereich des Dokuments."},
    {Cause::NoYRange, "Bitte den Bereich mit den Daten angeben."},
    {Cause::NoXRange, "Dieser Test braucht einen zweiten Bereich."},
    {Cause::UnequalPairs, "Beide Bereiche müssen gleich viele Zeilen haben."},
    {Cause::TooFewGroups, "Dieser Test braucht mindestens zwei Spalten oder mehrere Bereiche."},
    {Cause::TooFewRows, "Es müssen mindestens zwei Zeilen Daten sein."},
    {Cause::SeveralYColumns, "Dieser Test nimmt hier nur eine Spalte."},
    {Cause::SeveralXColumns, "Der zweite Bereich muss eine Spalte sein."},
    {Cause::NoSignCodes, "Jede Zelle muss 1, -1 oder 0 enthalten."},
    {Cause::TextInData, "% enthält einen Text; jede Zelle der Daten muss eine Zahl sein."},
    {Cause::BooleanInData, "% enthält WAHR oder FALSCH; jede Zelle der Daten muss eine Zahl sein."},
    {Cause::ErrorInData, "% enthält einen Fehler; bitte korrigieren oder die Zelle auslassen."},
    {Cause::BlankInData, "% ist leer; jede Zelle der Daten muss eine Zahl sein."},
    {Cause::NoData, "% enthält keine Daten."},
    {Cause::OutputOffSheet, "Der Bericht passt dort nicht; bitte eine Zelle weiter oben oder links wählen."},
    {Cause::OutputOccupied, "% enthält schon einen Wert; bitte eine andere Stelle wählen oder ersetzen lassen."},
    {Cause::NoContingencyTable, "Es sind weniger als zwei Gruppen, oder keine enthält einen Wert; bitte mindestens zwei Gruppen mit Werten angeben."},
    {Cause::RunInProgress, "Ein Test läuft bereits, und dieser würde seinen Bericht auf demselben Blatt aufbauen; bitte danach noch einmal starten."},
    {Cause::OutOfMemory, "Der Speicher reicht für so viele Zellen nicht."},
    {Cause::NoNumber, "Eine Zelle der Daten ist keine Zahl."},
    {Cause::AllValuesEqual, "Alle Werte sind gleich; es gibt nichts in eine Rangfolge zu bringen."},
    {Cause::NoDifference, "Alle Differenzen sind null; es gibt nichts in eine Rangfolge zu bringen."},
    {Cause::NoDifferenceOrTooLarge, "Alle Differenzen sind null, oder eine ist zu groß (über etwa 3,4e38)."},
    {Cause::NoCorrelation, "Die Werte eines Bereichs sind alle oder fast alle gleich; es gibt keine Rangkorrelation."},
    {Cause::BlocksAllTied, "In jedem Block sind alle Werte gleich; die Behandlungen lassen sich nicht ordnen."},
    {Cause::BlocksAgreeWholly, "Jeder Block ordnet die Behandlungen gleich; der Nenner der F-Statistik ist null. Deutlicher können sich die Behandlungen nicht unterscheiden; ein Bericht braucht Daten, die irgendwo abweichen."},
    {Cause::GroupEmptyOrAllEqual, "Eine Spalte enthält keinen Wert, oder alle Werte sind gleich; die Gruppen lassen sich nicht ordnen."},
    {Cause::TooFewValuesForF, "Für die F-Statistik sind es zu wenige Werte: Ihr Nenner ist null."},
    {Cause::RunsAreCertain, "Alle Zellen sind gleich, oder alle verschieden; die Zahl der Iterationen steht damit fest. Der Test braucht Kategorien, die sich wiederholen."},
});
// clang-format on

const Wording& wordingOf(const AlternativeTexts& texts, TBVNPMethod method, bool secondRange, bool named) {
    const Wording& differences = named ? texts.namedDifferences : texts.differences;
    switch (method) {
        case tbvNPSpearman:
            return texts.correlation;
        case tbvNPWilcoxon:
            return differences;
        case tbvNPSign:
            return secondRange ? differences : texts.codes;
        case tbvNPWWRuns:
            return texts.runs;
        default:
            return named ? texts.namedSamples : texts.samples;
    }
}

/// Two of them stand on a line of the list.
std::string shortName(const std::string& name) {
    constexpr std::size_t most = 16;
    return shortenedToWidth(onOneLine(name), most);
}

/// The first word of a description is the cell that it is about.
std::string withCell(std::string_view text, const std::string& description) {
    std::string result(text);
    if (const std::size_t place = result.find('%'); place != std::string::npos) {
        result.replace(place, 1, description.substr(0, description.find(' ')));
    }
    return result;
}

std::size_t numberOf(LiveObstacle obstacle) {
    return static_cast<std::size_t>(obstacle);
}

std::string inGerman(Cause cause, const Error& error) {
    return cause == Cause::Unknown ? error.description() : withCell(germanWords(cause), error.description());
}

std::string inEnglish(Cause cause, const Error& error, const RequestNames& names) {
    if (describesItself(error) || cause == Cause::Unknown) {
        return error.description();
    }
    const std::string_view advice = adviceOn(cause);
    return explanationOf(cause, names) + (advice.empty() ? "" : " ") + std::string(advice);
}

}  // namespace

bool isGerman(std::string_view language) noexcept {
    return language.starts_with("de");
}

std::string filledIn(std::string_view text, std::span<const std::string> facts) {
    std::string result;
    for (const std::string& fact : facts) {
        const std::size_t place = text.find('%');
        if (place == std::string_view::npos) {
            break;
        }
        result += std::string(text.substr(0, place)) + fact;
        text.remove_prefix(place + 1);
    }
    return result + std::string(text);
}

const DialogTexts& dialogTexts(std::string_view language) {
    return isGerman(language) ? german : english;
}

std::string visibleRowsLabel(const DialogTexts& texts, std::int32_t hidden, std::int32_t all) {
    return filledIn(texts.visibleRows, std::array{std::to_string(hidden), std::to_string(all)});
}

std::string missingLabel(const DialogTexts& texts, const reshaping::Account& account) {
    std::string list;
    const auto add = [&](std::string_view text, std::size_t some, std::size_t all) {
        if (some > 0) {
            list += (list.empty() ? "" : ", ") +
                    filledIn(text, std::array{std::to_string(some), std::to_string(all)});
        }
    };
    add(texts.units.at(static_cast<std::size_t>(account.unit)), account.missing, account.units);
    add(texts.unnamedRows, account.unnamed, account.rows);
    return filledIn(texts.missing, std::array{list});
}

std::string liveLabel(const DialogTexts& texts, LiveObstacle obstacle) {
    return obstacle == LiveObstacle::None
               ? std::string(texts.live)
               : filledIn(texts.notLive,
                          std::array{std::string(texts.liveObstacles.at(numberOf(obstacle) - 1))});
}

std::string liveWords(const DialogTexts& texts, const LiveOutcome& outcome) {
    if (outcome.obstacle != LiveObstacle::None) {
        const std::size_t number = numberOf(outcome.obstacle) - 1;
        const std::size_t settings = texts.liveObstacles.size();
        return number < settings
                   ? liveLabel(texts, outcome.obstacle)
                   : filledIn(texts.withoutLive,
                              std::array{std::string(texts.liveFailures.at(number - settings))});
    }
    std::string list;
    for (const std::string& heading : outcome.numbers) {
        list += (list.empty() ? "" : ", ") + heading;
    }
    return list.empty() ? list : filledIn(texts.partlyLive, std::array{list});
}

Alternatives alternativesOf(TBVNPMethod method, bool secondRange, const SampleNames& names,
                            std::string_view language) {
    const AlternativeTexts& texts = isGerman(language) ? germanAlternatives : englishAlternatives;
    const std::array facts{shortName(names.first), shortName(names.second)};
    Alternatives alternatives;
    std::ranges::transform(wordingOf(texts, method, secondRange, !names.first.empty()), alternatives.begin(),
                           [&](std::string_view words) { return filledIn(words, facts); });
    return alternatives;
}

std::string_view germanWords(Cause cause) noexcept {
    const auto* const known = std::ranges::find(germanCauses, cause, &GermanCause::cause);
    return known == germanCauses.end() ? std::string_view() : known->text;
}

std::string plainWords(const Error& error, TBVNPMethod method, const RequestNames& names,
                       std::string_view language) {
    const Cause cause = causeOf(error.number(), method);
    const std::string words = isGerman(language) ? inGerman(cause, error) : inEnglish(cause, error, names);
    return words.empty() ? (isGerman(language) ? "Fehler " : "Error ") + std::to_string(error.number())
                         : words;
}

}  // namespace TBVNonPara::calc
