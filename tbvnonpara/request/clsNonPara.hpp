#pragma once

#include <string>
#include <string_view>

#include "tbvnonpara/companion/CompanionLibrary.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"

namespace TBVNonPara {

/// One analysis request: choose the test and its options, name the ranges, call Results.
///
///     clsNonPara request(ownCompanions(application));  // any object that implements host/Application.hpp
///     request.LetMethod(tbvNPMannU);
///     request.LetHeaders(true);
///     request.LetYRange("Data!A1:A11");
///     request.LetXRange("Data!B1:B11");
///     request.LetOutputRange("Data!D1");  // without it the report comes onto a new worksheet
///     request.Results();
///
/// Set Method before YRange: the shape of the data range is checked against the method in force. Groups are
/// the columns of YRange, or its areas; one area or column otherwise. Settings take effect at the next
/// Results.
///
/// Every member raises Error, whose source names the procedure: one of the numbers of core/enumerations.hpp
/// for ranges and cells that the test cannot use, the host's own for what the host refuses. Cells that are
/// not numbers are refused before anything is computed or written. After an error the sheet added for a
/// report stays.
///
/// Use an object on one thread only, and a fresh one for a fresh analysis: results that a test does not fill
/// keep what an earlier run left.
class TBVNONPARA_API clsNonPara {
 public:
    /// The defaults: a two-tailed Mann-Whitney test, no headers, no descriptives, no ranges.
    explicit clsNonPara(CompanionLibrary companions);
    clsNonPara(const clsNonPara&) = delete;
    clsNonPara& operator=(const clsNonPara&) = delete;

    /// The test. A number that is none of them runs no test.
    void LetMethod(TBVNPMethod method);
    /// Whether the first row of each range holds labels.
    void LetHeaders(bool headers);
    /// Whether the report has the medians and the like of the groups, too.
    void LetOutputDescriptives(bool outputDescriptives);
    /// Wilcoxon: whether differences of zero are left out; the other tests do without.
    void LetIgnoreTies(bool ignoreTies);
    /// The alternative of a test of two variables.
    void LetTails(TBVNPTails tails);
    /// The data, or their first variable. Raises tbvNPNoYRange for no address, tbvNPTooFewGroups for one
    /// column of a test of groups, tbvNPYRangeColumns for several columns of another test (the range is set
    /// then), tbvNPBadYRange for an address that the host refuses.
    void LetYRange(std::string_view address);
    /// The second variable; empty for none. Raises tbvNPXRangeColumns for several columns (the range is set
    /// then), tbvNPBadXRange for an address that the host refuses.
    void LetXRange(std::string_view address);
    /// Where the report begins; empty for a new worksheet. Raises tbvNPBadOutputRange for an address that the
    /// host refuses.
    void LetOutputRange(std::string_view address);

    /// Checks the ranges, computes, builds the report on the scratch sheet and copies it to the output
    /// location, or to a new worksheet when none is set. Cells that hold something are replaced only when
    /// OverWrite is True. A client that the host calls back meanwhile may change the settings, for the next
    /// run; a second run inside this one is refused with tbvNPRunInProgress.
    void Results(bool OverWrite = false);

    /// What one run works with: the settings of the moment of its call. The host may call the client back
    /// while it works, and the client set what the next run is to use.
    struct Run {
        RangeRef yRange;                    ///< the data, or their first variable
        RangeRef xRange;                    ///< the second one, or none
        bool headers = false;               ///< as LetHeaders
        bool outputDescriptives = false;    ///< as LetOutputDescriptives
        bool ignoreTies = false;            ///< as LetIgnoreTies
        TBVNPTails tails = tbvNPTwoTailed;  ///< as LetTails
        TBVNPMethod method = tbvNPMannU;    ///< as LetMethod

        /// Whether both have the same ranges, as objects, and settings.
        friend bool operator==(const Run&, const Run&) = default;
    };

    /// Checks the ranges and computes as Results does, and leaves it at that: the numbers are the engine's.
    /// Returns what was computed with.
    Run Compute();

    /// The engine of this request, to read the numbers of the last run from.
    [[nodiscard]] const clsNonParaBO& engine() const { return *m_Engine; }

 private:
    [[nodiscard]] Run currentRun() const;
    void checkRanges(const DataCheck& check, const Run& run) const;
    void loadEngine(const Run& run);
    RangeRef currentReport(const Run& run);
    RangeRef newOutputRange();
    RangeRef GetResults(const Run& run);
    RangeRef FormatMannUResults(const Run& run);
    RangeRef FormatWilcoxonResults(const Run& run);
    RangeRef FormatSpearmanResults(const Run& run);
    RangeRef FormatSignResults(const Run& run);
    RangeRef FormatMedianResults(const Run& run);
    RangeRef FormatKWallisResults(const Run& run);
    RangeRef FormatWWRunsResults(const Run& run);

    CompanionLibrary m_Companions;
    // Members are destroyed from the last to the first: the ranges YRange, XRange and OutputRange, the
    // results, then the engine.
    ObjectRef<clsNonParaBO> m_Engine;
    RangeRef m_Results;
    RangeRef m_OutputRange;
    RangeRef m_XRange;
    RangeRef m_YRange;
    bool m_Headers = false;
    bool m_OutputDescriptives = false;
    bool m_IgnoreTies = false;
    TBVNPTails m_Tails = tbvNPTwoTailed;
    TBVNPMethod m_Method = tbvNPMannU;
    std::string m_XRangeText;
};

}  // namespace TBVNonPara
