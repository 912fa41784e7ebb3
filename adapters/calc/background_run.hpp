#pragma once

#include <atomic>
#include <com/sun/star/task/XStatusIndicator.hpp>
#include <functional>
#include <memory>
#include <optional>
#include <thread>

#include "adapters/calc/analysis_settings.hpp"
#include "adapters/calc/live_figures.hpp"
#include "adapters/calc/session.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tbvnonpara/reshaping/refusal.hpp"

namespace TBVNonPara::calc {

/// How a run ended: well, by an error, or because the user wanted it to.
struct Outcome {
    std::optional<Error> error;
    std::optional<reshaping::Refusal> refusal;  ///< of data that cannot be brought into form
    bool cancelled = false;
    std::string withoutDetails;     ///< why a report that was placed has none beside it; empty where it has
    std::string withoutPicture;     ///< the same of the picture
    bool detailsCancelled = false;  ///< or the picture
    LiveOutcome live;

    /// Whether the report was placed as it was wanted, with all that was wanted beside it.
    [[nodiscard]] bool isWhole() const noexcept {
        return withoutDetails.empty() && withoutPicture.empty() && live.obstacle == LiveObstacle::None &&
               live.numbers.empty();
    }
};

/// Where a run tells how far it is, and what is said there while details are counted.
struct RunProgress {
    Reference<css::task::XStatusIndicator> bar;
    OUString countingDetails;
};

/// One analysis on a thread of its own, with a request of its own. It can be cancelled until the report is
/// placed; once the test is computed, its details alone are. `finished` is called on the main thread.
class BackgroundRun {
 public:
    BackgroundRun(const Context& context, const DocumentRef& document, AnalysisSettings settings,
                  RunProgress progress, std::function<void(Outcome)> finished);
    /// Waits for the thread; on the main thread only after `finished` was called.
    ~BackgroundRun();

    void cancel() noexcept { (m_ReportComes ? m_DetailsCancelled : m_Cancelled) = true; }

 private:
    void work();
    void step();
    void watchDetails(double share);
    void analyse(Outcome& outcome);
    void analyseRanges(const std::shared_ptr<Session>& session, Outcome& outcome);
    void analyseTable(const std::shared_ptr<Session>& session, Outcome& outcome);
    void placeReport(const std::shared_ptr<Session>& session, const CompanionLibrary& companions,
                     clsNonPara& request, const AnalysisSettings& settings, Outcome& outcome);

    Context m_Context;
    DocumentRef m_Document;
    AnalysisSettings m_Settings;
    RunProgress m_Progress;
    std::function<void(Outcome)> m_Finished;
    std::atomic<bool> m_Cancelled = false;
    std::atomic<bool> m_ReportComes = false;
    std::atomic<bool> m_DetailsCancelled = false;
    bool m_WritesDetails = false;
    bool m_CountsDetails = false;
    sal_Int32 m_Steps = 0;
    std::thread m_Thread;
};

}  // namespace TBVNonPara::calc
