#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "tbvnonpara/companion/CompanionLibrary.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/array.hpp"
#include "tbvnonpara/core/enumerations.hpp"

namespace TBVNonPara {

/// Names of variables or groups, one per column of data.
using Labels = Array<std::string>;

/// Writes one report, section by section, onto the scratch sheet and hands back the block that holds it.
///
///     clsNonParaOutput writer(companions);
///     writer.OutputHeader("Data!$A$1:$A$4", "Data!$B$1:$B$4", tbvNPMannU);
///     writer.InsertBlankLines(1);
///     writer.OutputMWTest({"Before", "After"}, 9, {3, 3}, 0.1, tbvNPTwoTailed);
///     const RangeRef report = writer.GetResults();  // copy it before the next writer
///
/// The scratch sheet is "Results" of the open workbook "tbv2007.xlam" or, failing that, "Tabvance.xla"; a
/// host without either raises ObjectNotSet here. Creating a writer wipes the sheet. A section writes its
/// first row at the cursor and leaves the cursor on the first row below its last one. Lists and grids hold an
/// element or a column a group. Every member raises Error, the host's own where the host refuses a write;
/// nothing is undone then.
class TBVNONPARA_API clsNonParaOutput {
 public:
    explicit clsNonParaOutput(const CompanionLibrary& companions);

    void OutputHeader(std::string_view text1, std::string_view text2, TBVNPMethod method);
    void OutputComment(std::string_view text, Integer blankLines, bool emphasise);
    void InsertBlankLines(Integer n);

    void OutputMWDescriptives(const Labels& labels, const Grid<double>& Data, const Array<double>& MediansRaw,
                              const Array<double>& SumsRaw, const Array<Long>& NsRaw,
                              const Grid<double>& Ranks, const Array<double>& MediansRank,
                              const Array<double>& SumsRank, const Array<Long>& NsRank, TBVNPMethod method);
    void OutputMWTest(const Labels& names, double U, const Array<Long>& DF, double P, TBVNPTails tails);
    void OutputWWRuns(const Labels& names, const Array<CellValue>& categories, const Array<Long>& counts,
                      Long runs, double expected, double z, double p, TBVNPTails tails);
    void OutputMedianCounts(const Labels& names, const ValueGrid& counts);
    /// A row whose probability is missing is not written.
    void OutputContingency(double ChiSquare, double ChiSquareP, Long DF, double LogLikelihood,
                           double LogLikelihoodP, double Yates, std::optional<double> YatesP, double Cochran,
                           std::optional<double> CochranP, double LogLikelihoodYates,
                           std::optional<double> LogLikelihoodYatesP);
    void OutputKWallis(double ChiSq, const Array<Long>& DF, double P, double AlternateStat,
                       const Array<Long>& AlternateDF, double AlternateP);
    /// Empty labels are replaced in the caller's array.
    void OutputSignTest(Labels& labels, const Array<Long>& Counts, double P, TBVNPTails tails);
    void OutputWilcoxonDescriptives(const Labels& labels, const Grid<double>& Data,
                                    const Array<double>& Medians, const Array<double>& Sums,
                                    const Array<Long>& Ns, const Grid<double>& Differences);
    void OutputWilcoxonRanks(const Array<double>& Medians, const Array<double>& Sums, const Array<Long>& Ns,
                             const Labels& labels);
    void OutputWilcoxonTest(const Labels& labels, double Statistic, const Array<Long>& Counts, double P,
                            TBVNPTails tails, bool UseApprox);
    void OutputTest(const Labels& labels, double Statistic, const Array<Long>& DF, double P, TBVNPTails tails,
                    TBVNPMethod method, std::string_view methodWord);

    /// The block from the sheet's first cell to the cursor's row, at least two columns wide: a report that
    /// never left column 1 is six wide.
    [[nodiscard]] RangeRef GetResults();

 private:
    [[nodiscard]] RangeRef cell(Long row, Long column) const;
    [[nodiscard]] RangeRef block(Long firstRow, Long firstColumn, Long lastRow, Long lastColumn) const;
    [[nodiscard]] RangeRef line(Long row, Long firstColumn, Long lastColumn) const;
    void write(Long row, Long column, const CellValue& value) const;
    /// Writes a block of data in one call; a block without rows writes nothing.
    void write(Long row, Long column, const ValueGrid& values) const;
    void writeLine(Long row, std::span<const CellValue> values) const;
    void writeTitle(std::string_view text);
    /// A statistic, the first of its counts and its probability below the row of their headings, which the
    /// cursor is on.
    void writeStatistic(double statistic, const Array<Long>& counts, double P);
    void widenTo(Long column);

    // Members are destroyed from the last to the first: the sheet goes before the style, the style before the
    // formatter.
    ObjectRef<ReportFormatter> m_Formatter;
    ObjectRef<ReportStyle> m_Style;
    WorksheetRef m_Sheet;
    FormattingConstants m_Constants;
    Long m_Row = 1;
    Integer m_MaxCol = 1;
};

}  // namespace TBVNonPara
