#include "adapters/calc/functions/function_texts.hpp"

#include <algorithm>
#include <array>

namespace TBVNonPara::calc {

namespace {

// clang-format off
constexpr ArgumentTexts firstVariableArgument{
    {"range1", "Bereich1"}, {"The first variable, one column.", "Die erste Variable, eine Spalte."}};
constexpr ArgumentTexts secondVariableArgument{
    {"range2", "Bereich2"}, {"The second variable, one column.", "Die zweite Variable, eine Spalte."}};
constexpr ArgumentTexts codesArgument{
    {"range1", "Bereich1"}, {"The first variable, or a column of the codes 1, -1 and 0.",
                             "Die erste Variable, oder eine Spalte mit den Codes 1, -1 und 0."}};
constexpr ArgumentTexts secondIfAnyArgument{
    {"range2", "Bereich2"}, {"The second variable; left out for a column of codes.",
                             "Die zweite Variable; entfällt bei einer Spalte mit Codes."}};
constexpr ArgumentTexts sequenceArgument{
    {"range", "Bereich"}, {"The sequence, one column of numbers or texts.",
                           "Die Folge, eine Spalte mit Zahlen oder Texten."}};
constexpr ArgumentTexts groupsArgument{
    {"range", "Bereich"}, {"Each column is a group.", "Jede Spalte ist eine Gruppe."}};
constexpr ArgumentTexts moreGroupsArgument{
    {"more", "weitere"}, {"More ranges of groups.", "Weitere Bereiche mit Gruppen."}};
constexpr ArgumentTexts moreAndFigureArgument{
    {"more", "weitere"}, {"More ranges of groups; at last the name of a figure, without one all of them.",
                          "Weitere Bereiche mit Gruppen; zuletzt der Name eines Werts, ohne ihn alle."}};
constexpr ArgumentTexts alternativeArgument{
    {"alternative", "Alternative"}, {R"("<>", ">" or "<"; two-tailed without it.)",
                                     R"("<>", ">" oder "<"; ohne Angabe zweiseitig.)"}};
constexpr ArgumentTexts fewerOrMoreArgument{
    {"alternative", "Alternative"}, {R"("<>", "fewer" or "more" runs; two-tailed without it.)",
                                     R"("<>", "fewer" (weniger) oder "more" (mehr) Läufe; ohne Angabe zweiseitig.)"}};
constexpr ArgumentTexts figureArgument{
    {"name", "Name"}, {"The name of a figure; without it all of them, as an array.",
                       "Der Name eines Werts; ohne ihn alle, als Matrix."}};

constexpr std::array samplesAndAlternative{firstVariableArgument, secondVariableArgument, alternativeArgument};
constexpr std::array samplesAndFigure{firstVariableArgument, secondVariableArgument, figureArgument};
constexpr std::array signsAndAlternative{codesArgument, secondIfAnyArgument, alternativeArgument};
constexpr std::array signsAndFigure{codesArgument, secondIfAnyArgument, figureArgument};
constexpr std::array groupsAlone{groupsArgument, moreGroupsArgument};
constexpr std::array groupsAndFigure{groupsArgument, moreAndFigureArgument};
constexpr std::array sequenceAndAlternative{sequenceArgument, fewerOrMoreArgument};
constexpr std::array sequenceAndFigure{sequenceArgument, figureArgument};

constexpr auto cellFunctions = std::to_array<FunctionTexts>({
    {"mannWhitneyTest", "MANNWHITNEY.TEST",
     {"P of the Mann-Whitney U test of two independent samples.",
      "P des U-Tests nach Mann und Whitney für zwei unabhängige Stichproben."}, samplesAndAlternative},
    {"wilcoxonTest", "WILCOXON.TEST",
     {"P of the Wilcoxon signed ranks test of pairs.",
      "P des Vorzeichen-Rang-Tests nach Wilcoxon für Paare."}, samplesAndAlternative},
    {"spearmanTest", "SPEARMAN.TEST",
     {"P of the Spearman rank correlation of pairs.",
      "P der Rangkorrelation nach Spearman für Paare."}, samplesAndAlternative},
    {"signTest", "SIGN.TEST",
     {"P of the sign test of pairs or of codes.",
      "P des Vorzeichentests für Paare oder Codes."}, signsAndAlternative},
    {"medianTest", "MEDIAN.TEST",
     {"P of the Mood median test of independent groups.",
      "P des Median-Tests nach Mood für unabhängige Gruppen."}, groupsAlone},
    {"friedmanTest", "FRIEDMAN.TEST",
     {"P of the Friedman test of treatments, each row a block.",
      "P des Friedman-Tests für Behandlungen, jede Zeile ein Block."}, groupsAlone},
    {"kruskalWallisTest", "KRUSKALWALLIS.TEST",
     {"P of the Kruskal-Wallis test of independent groups.",
      "P des Tests nach Kruskal und Wallis für unabhängige Gruppen."}, groupsAlone},
    {"runsTest", "RUNS.TEST",
     {"P of the Wald-Wolfowitz runs test of a sequence.",
      "P des Lauftests nach Wald und Wolfowitz für eine Folge."}, sequenceAndAlternative},
    {"mannWhitneyDetails", "MANNWHITNEY.DETAILS",
     {"Figures of the Mann-Whitney U test.", "Werte des U-Tests nach Mann und Whitney."}, samplesAndFigure},
    {"wilcoxonDetails", "WILCOXON.DETAILS",
     {"Figures of the Wilcoxon signed ranks test.", "Werte des Vorzeichen-Rang-Tests nach Wilcoxon."},
     samplesAndFigure},
    {"spearmanDetails", "SPEARMAN.DETAILS",
     {"Figures of the Spearman rank correlation.", "Werte der Rangkorrelation nach Spearman."},
     samplesAndFigure},
    {"signDetails", "SIGN.DETAILS",
     {"Figures of the sign test.", "Werte des Vorzeichentests."}, signsAndFigure},
    {"medianDetails", "MEDIAN.DETAILS",
     {"Figures of the Mood median test.", "Werte des Median-Tests nach Mood."}, groupsAndFigure},
    {"friedmanDetails", "FRIEDMAN.DETAILS",
     {"Figures of the Friedman test.", "Werte des Friedman-Tests."}, groupsAndFigure},
    {"kruskalWallisDetails", "KRUSKALWALLIS.DETAILS",
     {"Figures of the Kruskal-Wallis test.", "Werte des Tests nach Kruskal und Wallis."}, groupsAndFigure},
    {"runsDetails", "RUNS.DETAILS",
     {"Figures of the Wald-Wolfowitz runs test.", "Werte des Lauftests nach Wald und Wolfowitz."},
     sequenceAndFigure},
});
// clang-format on

const FunctionTexts* functionWith(std::string_view FunctionTexts::*member, std::string_view name) {
    const auto* const found = std::ranges::find(cellFunctions, name, member);
    return found == cellFunctions.end() ? nullptr : found;
}

}  // namespace

const FunctionTexts* functionOf(std::string_view method) {
    return functionWith(&FunctionTexts::method, method);
}

const FunctionTexts* functionShownAs(std::string_view name) {
    return functionWith(&FunctionTexts::shown, name);
}

}  // namespace TBVNonPara::calc
