#include "adapters/calc/background_run.hpp"

#include "adapters/calc/calc_application.hpp"
#include "adapters/calc/main_thread.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"

namespace TBVNonPara::calc {

namespace {

/// Ends a run from within one of its steps.
class Cancelled : public std::exception {};

constexpr sal_Int32 fullProgress = 1000;

}  // namespace

BackgroundRun::BackgroundRun(const Context& context, const DocumentRef& document, AnalysisSettings settings,
                             const Reference<css::task::XStatusIndicator>& progress,
                             std::function<void(Outcome)> finished)
    : m_Context(context),
      m_Document(document),
      m_Settings(std::move(settings)),
      m_Progress(progress),
      m_Finished(std::move(finished)),
      m_Thread([this] { work(); }) {
}

BackgroundRun::~BackgroundRun() {
    // The thread uses this object to its end; it never waits for the main thread without a limit.
    m_Thread.join();
}

void BackgroundRun::step() {
    if (m_Cancelled) {
        throw Cancelled();
    }
    // How many steps there are depends on the data: the bar approaches its end without reaching it.
    m_Steps += 1;
    if (m_Progress.is() && m_Steps % 8 == 1) {
        m_Progress->setValue(fullProgress - fullProgress * 20 / (20 + m_Steps));
    }
}

void BackgroundRun::analyse() {
    const auto session = std::make_shared<Session>(m_Context, m_Document);
    session->onStep([this] { step(); });
    session->nameNewSheets(m_Settings.newSheetName);
    if (m_Settings.visibleRowsOnly) {
        session->leaveOutHiddenRows();
    }
    clsNonPara request(calcCompanions(session));
    request.LetMethod(m_Settings.method);
    request.LetTails(m_Settings.tails);
    request.LetHeaders(m_Settings.headers);
    request.LetOutputDescriptives(m_Settings.descriptives);
    request.LetIgnoreTies(m_Settings.ignoreTies);
    {
        const DataRangeScope scope(*session, DataRange::First, m_Settings.firstRange);
        request.LetYRange(m_Settings.firstRange);
    }
    {
        const DataRangeScope scope(*session, DataRange::Second, m_Settings.secondRange);
        request.LetXRange(m_Settings.secondRange);
    }
    request.LetOutputRange(m_Settings.outputCell);
    const Run run(*session, rowRules(m_Settings.method, m_Settings.headers));
    request.Results(m_Settings.overWrite);
}

void BackgroundRun::work() {
    Outcome outcome;
    try {
        analyse();
    } catch (...) {
        outcome.error = currentError();
        outcome.cancelled = m_Cancelled;
    }
    // The windows of the dialog belong to the main thread. Copies go along: what is called may
    // destroy this object.
    whenIdle(m_Context, [finished = m_Finished, outcome] { finished(outcome); });
}

}  // namespace TBVNonPara::calc
