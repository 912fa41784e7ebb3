#pragma once

#include <variant>

#include "tbvnonpara/companion/CompanionLibrary.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/distributions/normal.hpp"
#include "tbvnonpara/engine/group_descriptives.hpp"

namespace TBVNonPara {

/// A data input: one value, a list or a grid. The engine keeps it as a grid.
using EngineInput = std::variant<CellValue, Array<CellValue>, ValueGrid>;

/// Results that only one test has: nothing, the sign test's three counts, the runs test's categories or the
/// median test's table of counts.
using OtherResults = std::variant<Empty, Array<Long>, Array<CellValue>, ValueGrid>;

/// A ranked table, n x 4: one row per observation, ascending by value.
using DataTable = Grid<double>;

/// The columns of a data table: the value that was ranked, a group code, the rank (0 for an unranked row) and
/// the row's position before the values ascended.
enum DataColumn : Index { Value = 1, Group, Rank, Sequence };

/// The group codes of paired differences.
constexpr int Positive = 1;
constexpr int Negative = 2;
constexpr int Zero = 3;

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
    explicit clsNonParaBO(CompanionLibrary companions);
    clsNonParaBO(const clsNonParaBO&) = delete;
    clsNonParaBO& operator=(const clsNonParaBO&) = delete;

    void LetDescriptives(bool descriptives);
    void LetIgnoreTies(bool ignoreTies);
    void LetTails(TBVNPTails tails);
    void LetMethod(TBVNPMethod method);
    void LetYs(EngineInput values);
    void Letxs(EngineInput values);

    /// Runs the test of the method in force; a method outside the list does nothing.
    void Analyse();

    /// The statistic under its four names: U, T or rs, Z, chi-square.
    [[nodiscard]] double GetU() const;
    [[nodiscard]] double GetWilcoxonT() const;
    [[nodiscard]] double GetZ() const;
    [[nodiscard]] double GetChiSq() const;
    [[nodiscard]] double GetAlternateStat() const;
    [[nodiscard]] double GetP() const;
    [[nodiscard]] double GetAlternateP() const;
    [[nodiscard]] Array<Long> GetDF() const;
    [[nodiscard]] Array<Long> GetAlternateDF() const;

    /// Rows x groups: the data of each group in entry order, and the rank of each in the same cell.
    [[nodiscard]] Grid<double> GetData() const;
    [[nodiscard]] Grid<double> GetRanks() const;

    /// One element per group.
    [[nodiscard]] Array<double> GetMediansRaw() const;
    [[nodiscard]] Array<double> GetSumsRaw() const;
    [[nodiscard]] Array<Long> GetNsRaw() const;
    [[nodiscard]] Array<double> GetMediansRank() const;
    [[nodiscard]] Array<double> GetSumsRank() const;
    [[nodiscard]] Array<Long> GetNsRank() const;

    [[nodiscard]] double GetGrandMedian() const;
    [[nodiscard]] OtherResults GetOther() const;
    [[nodiscard]] Long GetNumRuns() const;
    [[nodiscard]] double ExpectedRuns() const;
    /// The table of the last median test; shared with the engine, not copied.
    [[nodiscard]] ObjectRef<ContingencyAnalysis> GetContingencyResults() const;
    [[nodiscard]] bool GetUseApprox() const;

    /// Exact lower-tail probability of the signed-rank sum T for a ranked table of differences, doubled when
    /// two-tailed and never above 1.
    [[nodiscard]] double WilcoxonTDist(const DataTable& table, double T, bool oneTailed) const;
    /// The same by the normal approximation without continuity correction; Z receives |Z|.
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
    ValueGrid m_Ys;
    ValueGrid m_Xs;
    TBVNPTails m_Tails = tbvNPTwoTailed;
    TBVNPMethod m_Method = tbvNPMannU;
    bool m_WantsDescriptives = false;
    bool m_IgnoreTies = false;
};

}  // namespace TBVNonPara
