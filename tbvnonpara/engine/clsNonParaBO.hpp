#pragma once

#include <variant>

#include "tbvnonpara/companion/CompanionLibrary.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/engine/data_table.hpp"
#include "tbvnonpara/engine/group_summary.hpp"

namespace TBVNonPara {

/// A data input: one value, a list or a grid. The engine keeps it as a grid.
using EngineInput = std::variant<CellValue, Array<CellValue>, ValueGrid>;

/// Results that only one test has: nothing, the sign test's three counts, the runs test's categories or the
/// median test's table of counts.
using OtherResults = std::variant<Empty, Array<Long>, Array<CellValue>, ValueGrid>;

/// The statistics engine: load the inputs, Analyse, read the results. A test writes the fields it fills and
/// leaves all others as they are; arrays that no test has filled are unallocated. Every member raises Error.
class clsNonParaBO {
 public:
    explicit clsNonParaBO(CompanionLibrary companions);
    ~clsNonParaBO();
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

    void store(GroupSummaries summaries);
    [[nodiscard]] const WorksheetFunction& functions() const;

    double m_Statistic = 0;
    double m_AlternateStat = 0;
    double m_P = 0;
    double m_AlternateP = 0;
    Array<Long> m_DF;
    Array<Long> m_AlternateDF;
    Grid<double> m_Data;
    Array<double> m_MediansRaw;
    Array<Long> m_NsRaw;
    Array<double> m_SumsRaw;
    Grid<double> m_Ranks;
    Array<double> m_MediansRank;
    Array<Long> m_NsRank;
    Array<double> m_SumsRank;
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
    bool m_Descriptives = false;
    bool m_IgnoreTies = false;
    CompanionLibrary m_Companions;
    ObjectRef<ArrayUtility> m_Utility;
};

}  // namespace TBVNonPara
