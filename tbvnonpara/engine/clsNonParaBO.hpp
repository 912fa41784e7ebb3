#pragma once

#include <variant>

#include "tbvnonpara/companion/CompanionLibrary.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/distributions/normal.hpp"
#include "tbvnonpara/engine/engine_data.hpp"
#include "tbvnonpara/engine/group_descriptives.hpp"

namespace TBVNonPara {

/// A data input: one value, a list, a grid, or columns of numbers that are shared, not copied.
using EngineInput = std::variant<CellValue, Array<CellValue>, ValueGrid, NumberColumns>;

/// Results that only one test has: nothing, the sign test's three counts, the runs test's categories or the
/// median test's table of counts.
using OtherResults = std::variant<Empty, Array<Long>, Array<CellValue>, ValueGrid>;

/// A ranked table, n x 4: one row per observation, ascending by value.
using DataTable = Grid<double>;

/// The columns of a data table: the value that was ranked, a group code, the rank (0 for an unranked row) and
/// the row's position before the values ascended.
enum DataColumn : Index {
    Value = 1,  ///< what was ranked
    Group,      ///< Positive, Negative or Zero
    Rank,       ///< from 1, midranks of ties; 0 for an unranked row
    Sequence,   ///< the row's place before the values ascended, from 1
};

constexpr int Positive = 1;  ///< the group code of a difference above 0
constexpr int Negative = 2;  ///< the group code of a difference below 0
constexpr int Zero = 3;      ///< the group code of no difference

/// The statistics engine: load the inputs, Analyse, read the results.
///
///     clsNonParaBO engine(ownCompanions(nullptr));
///     engine.LetMethod(tbvNPMannU);
///     engine.LetYs(ValueGrid{{1.0}, {2.0}, {3.0}});
///     engine.Letxs(ValueGrid{{4.0}, {5.0}, {6.0}});
///     engine.Analyse();
///     std::cout << engine.GetU() << ' ' << engine.GetP();  // 9 0.1
///
/// Two samples, pairs and signs are one column in Ys and one in Xs, groups and blocks the columns of Ys (a
/// row is a block), the cells of the runs test one column of Ys. A list is one column. Rows and columns count
/// from 1.
///
/// The tests are those of Mann and Whitney (1947), Wilcoxon (1945), Spearman (1904), Mood (1950), Friedman
/// (1937), Kruskal and Wallis (1952) and Wald and Wolfowitz (1940), and the sign test; docs/tests/ has their
/// formulas.
///
/// The engine does not check its data. Mann-Whitney counts a blank cell as an observation and reads what
/// follows at the wrong place (a U of 16 where 12 is the largest); NaN and infinity have no place in an
/// order, and what comes of them is no result of any test. Leave such cells out, or drive clsNonPara, which
/// checks every cell before anything is computed and names the first that it refuses.
///
/// A test writes the fields it fills and leaves all others as they are; arrays that no test has filled are
/// unallocated. Every member raises Error: TypeMismatch for a cell that is no number, DivisionByZero or
/// Overflow where a statistic does not exist (all values equal, a single pair), and what the host's worksheet
/// functions raise. With `ownCompanions(nullptr)` there is no host, and every test runs all the same.
///
/// n values take O(n log n); an exact probability of n1 and n2 values n1 x n2 x min(n1, n2), of n signed
/// ranks n^3. No more than six times the input is held at once. One object belongs to one thread at a time.
class TBVNONPARA_API clsNonParaBO {
 public:
    /// With a two-tailed Mann-Whitney test and no data. Raises ObjectNotSet without a factory of array
    /// utilities.
    explicit clsNonParaBO(CompanionLibrary companions);
    clsNonParaBO(const clsNonParaBO&) = delete;
    clsNonParaBO& operator=(const clsNonParaBO&) = delete;

    /// Whether Mann-Whitney and the median test keep data, ranks and their summaries. Wilcoxon, Spearman,
    /// Friedman and Kruskal-Wallis always do; sign and runs have none.
    void LetDescriptives(bool descriptives);
    /// Wilcoxon: whether differences of zero are left out of the ranking.
    void LetIgnoreTies(bool ignoreTies);
    /// The alternative of a test that has two.
    void LetTails(TBVNPTails tails);
    /// The test that Analyse runs.
    void LetMethod(TBVNPMethod method);
    /// The first sample or variable, n1 x 1; the groups, rows x groups; the blocks, blocks x treatments; the
    /// sequence, n x 1; the signs, n x 1. What is given is moved or copied, O(cells).
    void LetYs(EngineInput values);
    /// The second sample, n2 x 1, or variable, n x 1. For signs that are codes in Ys, a blank: CellValue().
    void Letxs(EngineInput values);

    /// Runs the test of the method in force; a method outside the list does nothing. Of an error, what was
    /// computed before it stays.
    void Analyse();

    /// The statistic, under the name that it has in Mann-Whitney: U2 of tbvNPVar1GTVar2, U1 of
    /// tbvNPVar1LTVar2, else the larger one, where U1 = n1 n2 + n1 (n1 + 1) / 2 - R1.
    [[nodiscard]] double GetU() const;
    /// The same value. Wilcoxon: of up to 50 pairs the negative ranks' sum of tbvNPVar1GTVar2, the positive
    /// ones' of tbvNPVar1LTVar2, else the smaller one; of more pairs |Z|. Spearman: rs, from -1 to 1.
    [[nodiscard]] double GetWilcoxonT() const;
    /// The same value. Runs: Z, with a continuity correction.
    [[nodiscard]] double GetZ() const;
    /// The same value. Friedman and Kruskal-Wallis: chi-square, corrected for ties.
    [[nodiscard]] double GetChiSq() const;
    /// Wilcoxon of more than 50 pairs: |Z|. Spearman: rs times the root of n - 1. Friedman and
    /// Kruskal-Wallis: F.
    [[nodiscard]] double GetAlternateStat() const;
    /// The probability of the statistic: 0 to 1, but for runs near their mean, of which the two-tailed one
    /// may exceed 1. The median test has its own in GetContingencyResults().
    [[nodiscard]] double GetP() const;
    /// The probability of GetAlternateStat(); Spearman's two-tailed one exceeds 1 where rs is negative.
    [[nodiscard]] double GetAlternateP() const;
    /// Mann-Whitney: {n1, n2}. Wilcoxon: {pairs}, without zeros where these are ignored. Spearman: {n}.
    /// Friedman and Kruskal-Wallis: {groups - 1}.
    [[nodiscard]] Array<Long> GetDF() const;
    /// Wilcoxon and Spearman: as GetDF(). Friedman: {k - 1, (k - 1)(b - 1)} of k treatments in b blocks.
    /// Kruskal-Wallis: {k - 1, N - k - 1} of N values in k groups.
    [[nodiscard]] Array<Long> GetAlternateDF() const;

    /// Rows x groups: the data of each group in entry order, 0 below the end of a shorter one. A copy, as all
    /// arrays here: O(cells).
    [[nodiscard]] Grid<double> GetData() const;
    /// The rank of each value, in the same cell. Wilcoxon: pairs x 3, the difference, its rank and that with
    /// the difference's sign.
    [[nodiscard]] Grid<double> GetRanks() const;

    /// The median of each group of values, in the values' unit.
    [[nodiscard]] Array<double> GetMediansRaw() const;
    /// The sum of each group of values, in the values' unit.
    [[nodiscard]] Array<double> GetSumsRaw() const;
    /// How many values each group has. Runs: how many cells each category.
    [[nodiscard]] Array<Long> GetNsRaw() const;
    /// The median rank of each group. Wilcoxon, here and in the next two: of the positive, the negative and
    /// the zero differences.
    [[nodiscard]] Array<double> GetMediansRank() const;
    /// The sum of the ranks of each group.
    [[nodiscard]] Array<double> GetSumsRank() const;
    /// How many ranks each group has.
    [[nodiscard]] Array<Long> GetNsRank() const;

    /// The median test: that of all values together.
    [[nodiscard]] double GetGrandMedian() const;
    /// Sign: {positive, neither, negative}. Runs: the categories in the order in which they appear. Median: 3
    /// x (groups + 1), the counts above the median and those not above it below and beside their labels.
    [[nodiscard]] OtherResults GetOther() const;
    /// The runs of a sequence.
    [[nodiscard]] Long GetNumRuns() const;
    /// How many runs chance makes of these categories on average.
    [[nodiscard]] double ExpectedRuns() const;
    /// The table of the last median test; shared with the engine, not copied.
    [[nodiscard]] ObjectRef<ContingencyAnalysis> GetContingencyResults() const;
    /// Whether this engine has ever had more than 50 pairs for Wilcoxon, and so a normal approximation.
    [[nodiscard]] bool GetUseApprox() const;

    /// Exact lower-tail probability of the signed-rank sum T for a ranked table of differences, doubled when
    /// two-tailed and never above 1. O(n^3).
    [[nodiscard]] double WilcoxonTDist(const DataTable& table, double T, bool oneTailed) const;
    /// The same by the normal approximation without continuity correction; Z receives |Z|. O(n).
    [[nodiscard]] double WilcoxonZApprox(const DataTable& table, double T, bool oneTailed, double& Z) const;

 private:
    void AnalyseMannWhitney();
    void AnalyseWilcoxon();
    void AnalyseSpearman();
    void AnalyseSign();
    void AnalyseMedian();
    void AnalyseFriedman();
    void AnalyseKWallis();
    void AnalyseWWRuns();

    [[nodiscard]] const WorksheetFunction& functions() const;
    /// The host's normal distribution, asked for each time it is called.
    [[nodiscard]] NormalTail normal() const;

    // Members are destroyed from the last to the first: the contingency table goes before the array utility.
    CompanionLibrary m_Companions;
    ObjectRef<ArrayUtility> m_Utility;
    double m_Statistic = 0;
    double m_AlternateStat = 0;
    double m_P = 0;
    double m_AlternateP = 0;
    Array<Long> m_DF;
    Array<Long> m_AlternateDF;
    UnreadDescriptives m_Descriptives;
    double m_GrandMedian = 0;
    OtherResults m_Other;
    Long m_NumRuns;
    double m_ExpectedRuns = 0;
    ObjectRef<ContingencyAnalysis> m_ContingencyResults;
    bool m_UseApprox = false;
    EngineData m_Ys;
    EngineData m_Xs;
    TBVNPTails m_Tails = tbvNPTwoTailed;
    TBVNPMethod m_Method = tbvNPMannU;
    bool m_WantsDescriptives = false;
    bool m_IgnoreTies = false;
};

}  // namespace TBVNonPara
