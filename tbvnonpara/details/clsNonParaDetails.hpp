#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/details/details.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"

namespace TBVNonPara {

/// One test in full: its effect with an interval, its probabilities, groups and comparisons, to read by name
/// or to put on a sheet. The report is clsNonPara's and stays as it is.
///
///     clsNonParaDetails details(ownCompanions(application));
///     details.LetMethod(tbvNPMannU);
///     details.LetHeaders(true);
///     details.LetYRange("Data!A1:A11");
///     details.LetXRange("Data!B1:B11");
///     details.Calculate();
///     details.Value("effect.superiority.low");  // 0.106
///     details.WriteTo("Data!H1");
///
/// The settings are those of clsNonPara, to be set in the same order, and take effect at the next Calculate.
/// Every member raises Error as those of clsNonPara do. Use an object on one thread only.
class TBVNONPARA_API clsNonParaDetails {
 public:
    /// The defaults: those of clsNonPara; a confidence of 95 per cent, Holm's adjustment, all pairs of
    /// groups.
    explicit clsNonParaDetails(CompanionLibrary companions);
    clsNonParaDetails(const clsNonParaDetails&) = delete;
    clsNonParaDetails& operator=(const clsNonParaDetails&) = delete;

    /// The test, as for clsNonPara.
    void LetMethod(TBVNPMethod method);
    /// Whether the first row of each range holds labels.
    void LetHeaders(bool headers);
    /// Details always have the medians of the groups; this changes nothing, and is here so that what sets up
    /// a report can set up its details.
    void LetOutputDescriptives(bool outputDescriptives);
    /// As for clsNonPara; the details of Wilcoxon have both ways to treat differences of zero.
    void LetIgnoreTies(bool ignoreTies);
    /// The alternative of a test of two variables.
    void LetTails(TBVNPTails tails);
    /// The data, or their first variable; raises as clsNonPara::LetYRange does.
    void LetYRange(std::string_view address);
    /// The second variable, empty for none; raises as clsNonPara::LetXRange does.
    void LetXRange(std::string_view address);
    /// Where WriteTo writes when it is given no address of its own.
    void LetOutputRange(std::string_view address);

    /// The level of the intervals in per cent, 50 to 99.9.
    void LetConfidence(double percent);
    /// How P of the comparisons is adjusted: "holm", "bonferroni", "bh" (Benjamini and Hochberg) or "none".
    void LetAdjust(std::string_view word);
    /// The label of the one group that the others are compared with; empty for all pairs.
    void LetControl(std::string_view label);
    /// Whether the groups are tested for a trend, too: Kruskal-Wallis and Friedman.
    void LetTrend(bool trend);

    /// Told from time to time how far Calculate is with a long count, 0 to 1; an error that it raises ends
    /// Calculate and is passed on. One count follows another.
    void LetWatch(CountWatch watch);

    /// Checks the ranges and computes. What an earlier call computed is gone, also after an error.
    void Calculate();

    /// A figure of the last Calculate by its name in JSON, "effect.superiority.low" or
    /// "groups.2.median.value"; of one with a value, a low and a high, and of a probability, its name alone
    /// gives the value. Empty where the test or the data have no such figure; a name that leads nowhere is
    /// refused.
    [[nodiscard]] CellValue Value(std::string_view name) const;

    /// All of it as text, in lines of UTF-8.
    [[nodiscard]] std::string Text() const;
    /// All of it as JSON, one object in UTF-8.
    [[nodiscard]] std::string Json() const;

    /// Writes the details to the first cell of an address and below; without one to OutputRange, and without
    /// that onto a new sheet "Details" behind the sheet of YRange. Cells that hold something are replaced
    /// only when OverWrite is True. Returns the block.
    RangeRef WriteTo(std::string_view address = {}, bool OverWrite = false);

 private:
    [[nodiscard]] const Details& calculated() const;

    CompanionLibrary m_Companions;
    clsNonPara m_Request;
    DetailChoices m_Choices;
    CountWatch m_Watch;
    /// One Calculate at a time: a host that is told of it may call back.
    std::shared_ptr<std::atomic<bool>> m_Calculating = std::make_shared<std::atomic<bool>>(false);
    std::string m_OutputRange;
    std::optional<Details> m_Details;
    std::string m_Source;  ///< the ranges that were computed with, as reports name them
    RangeRef m_YRange;
};

}  // namespace TBVNonPara
