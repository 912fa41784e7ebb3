#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/details/page.hpp"
#include "tbvnonpara/details/probability.hpp"

namespace TBVNonPara {

// What the pages of all tests are made of.

[[nodiscard]] DetailCell nameCell(std::string name);
[[nodiscard]] DetailCell numberCell(std::optional<double> number);
[[nodiscard]] DetailCell wholeCell(std::size_t number);
/// "68 %" of 0.68, and "12 of 22".
[[nodiscard]] DetailCell percentCell(double part);
[[nodiscard]] DetailCell shareCell(std::uint64_t number, std::uint64_t whole);
[[nodiscard]] DetailCell probabilityCell(const statistics::Probability& p);

/// A number with four decimals, and a probability as tables show it.
[[nodiscard]] std::string fourDecimals(double number);
[[nodiscard]] std::string probabilityText(const statistics::Probability& p);
/// 0.745 as "74".
[[nodiscard]] std::string percentage(double part);
/// "1 group", "3 groups".
[[nodiscard]] std::string counted(std::size_t number, std::string_view one, std::string_view several);
/// A number of arrangements with its thousands divided and a blank behind, "184,756 "; nothing for one that
/// nobody would read.
[[nodiscard]] std::string ways(double number);
/// n over k.
[[nodiscard]] double choose(std::size_t n, std::size_t k);

/// "95 %".
[[nodiscard]] std::string levelText(double confidence);
/// ", 95 % CI -3.6000 to 0.1000"; nothing without an interval.
[[nodiscard]] std::string intervalText(const std::optional<double>& low, const std::optional<double>& high,
                                       double confidence);
/// The same in per cent: ", 95 % CI 49 to 89 %".
[[nodiscard]] std::string intervalInPercent(const std::optional<double>& low,
                                            const std::optional<double>& high, double confidence);

/// The probability in the direction that was asked for.
template <typename Tails>
[[nodiscard]] const statistics::Probability& inDirection(const Tails& tails, TBVNPTails direction) {
    return inDirection(tails.two, tails.greater, tails.less, direction);
}

/// "P = 0.0658 is exact: all of them were counted.", followed by what the report has when that looks
/// different.
[[nodiscard]] std::string sentenceOnP(const statistics::Probability& p, std::string_view how,
                                      double reportedP);

/// "2 of 3 pairs of groups differ at 5 % (P adjusted by Holm)."
[[nodiscard]] std::string differencesText(std::size_t differ, std::size_t comparisons,
                                          const DetailChoices& choices);
template <typename Comparison>
[[nodiscard]] std::string differencesText(const std::vector<Comparison>& comparisons,
                                          const DetailChoices& choices) {
    std::size_t differ = 0;
    for (const Comparison& comparison : comparisons) {
        differ += comparison.adjusted.value <= 1 - choices.confidence ? 1U : 0U;
    }
    return differencesText(differ, comparisons.size(), choices);
}

/// "P adjusted by Holm".
[[nodiscard]] std::string adjustmentText(statistics::Adjustment adjustment);

/// The sentence on an interval that ends at observations, where its level is another one or there is none.
void noteLevel(const statistics::OrderedEstimate& estimate, std::string_view what, double confidence,
               std::vector<std::string>& notes);
/// "Ties: 3 groups with 6 values, the largest of 2; factor 0.9977.", or "No ties."
[[nodiscard]] std::string tiesText(const statistics::Ties& ties, std::string_view values);

/// Rows of the tables that all tests have.
[[nodiscard]] std::vector<DetailCell> effectRow(std::string name, const statistics::Estimate& estimate);
[[nodiscard]] std::vector<DetailCell> effectRow(std::string name,
                                                const statistics::OrderedEstimate& estimate);
[[nodiscard]] DetailTable effectTable();
/// Two-tailed, or in the direction of the tails: "greater" or "less" in the words given.
[[nodiscard]] DetailTable probabilityTable(TBVNPTails tails, std::string_view greater = "greater",
                                           std::string_view less = "less");
void addExact(DetailTable& table, std::string name, const std::optional<statistics::Tails>& exact,
              TBVNPTails tails);
void addNormal(DetailTable& table, std::string name,
               const std::optional<statistics::NormalApproximation>& normal, TBVNPTails tails);
void addStudent(DetailTable& table, std::string name, const std::optional<statistics::StudentTails>& student,
                TBVNPTails tails);

}  // namespace TBVNonPara
