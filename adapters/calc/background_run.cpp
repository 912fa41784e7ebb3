#include "adapters/calc/background_run.hpp"

#include "adapters/calc/calc_application.hpp"
#include "adapters/calc/details_beside_report.hpp"
#include "adapters/calc/kept_requests.hpp"
#include "adapters/calc/main_thread.hpp"
#include "adapters/calc/reshaped_application.hpp"
#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/reshaping/refusal.hpp"

namespace TBVNonPara::calc {

namespace {

/// Ends a run from within one of its steps.
class Cancelled : public std::exception {};

constexpr sal_Int32 fullProgress = 1000;

/// What is asked of the columns that were made of a table in long form: the groups' names are their labels,
/// and two groups are two ranges.
AnalysisSettings asColumns(AnalysisSettings settings) {
    if (settings.groupsInOneColumn) {
        settings.headers = true;
        settings.secondRange = takesTwoRanges(settings.method) ? settings.firstRange : "";
    }
    return settings;
}

/// What a report does not say itself: which column named its groups, and what was left out.
std::string noteOn(const reshaping::Account& account, const AnalysisSettings& settings) {
    std::string note;
    if (settings.groupsInOneColumn) {
        note = "Groups of " + settings.groupRange + ": " + reshaping::sizesOf(account.groups);
    }
    const std::string leftOut = capitalised(reshaping::leftOut(account));
    return note + (note.empty() || leftOut.empty() ? "" : "\n") + leftOut;
}

void setUp(clsNonPara& request, Session& session, const AnalysisSettings& settings) {
    request.LetMethod(settings.method);
    request.LetTails(settings.tails);
    request.LetHeaders(settings.headers);
    request.LetOutputDescriptives(settings.descriptives);
    request.LetIgnoreTies(settings.ignoreTies);
    {
        const DataRangeScope scope(session, DataRange::First, settings.firstRange);
        request.LetYRange(settings.firstRange);
    }
    {
        const DataRangeScope scope(session, DataRange::Second, settings.secondRange);
        request.LetXRange(settings.secondRange);
    }
    request.LetOutputRange(settings.outputCell);
}

}  // namespace

BackgroundRun::BackgroundRun(const Context& context, const DocumentRef& document, AnalysisSettings settings,
                             RunProgress progress, std::function<void(Outcome)> finished)
    : m_Context(context),
      m_Document(document),
      m_Settings(std::move(settings)),
      m_Progress(std::move(progress)),
      m_Finished(std::move(finished)),
      m_Thread([this] { work(); }) {
}

BackgroundRun::~BackgroundRun() {
    // The thread uses this object to its end; it never waits for the main thread without a limit.
    m_Thread.join();
}

void BackgroundRun::step() {
    if (m_Cancelled || (m_WritesDetails && m_DetailsCancelled)) {
        throw Cancelled();
    }
    // How many steps there are depends on the data: the bar approaches its end without reaching it.
    m_Steps += 1;
    if (m_Progress.bar.is() && m_Steps % 8 == 1) {
        m_Progress.bar->setValue(fullProgress - fullProgress * 20 / (20 + m_Steps));
    }
}

void BackgroundRun::watchDetails(double share) {
    if (m_Cancelled || m_DetailsCancelled) {
        throw Cancelled();
    }
    if (!m_Progress.bar.is()) {
        return;
    }
    if (!m_CountsDetails) {
        m_CountsDetails = true;
        m_Progress.bar->setText(m_Progress.countingDetails);
    }
    m_Progress.bar->setValue(static_cast<sal_Int32>(fullProgress * share));
}

void BackgroundRun::analyse(Outcome& outcome) {
    const auto session = std::make_shared<Session>(m_Context, m_Document);
    session->onStep([this] { step(); });
    session->nameNewSheets(m_Settings.newSheetName);
    if (!m_Settings.replacedReport.empty()) {
        session->replaceReport(resolveWhole(m_Document, activeSheet(m_Document), m_Settings.replacedReport));
    }
    if (m_Settings.visibleRowsOnly) {
        session->leaveOutHiddenRows();
    }
    m_Settings.omitMissing || m_Settings.groupsInOneColumn ? analyseTable(session, outcome)
                                                           : analyseRanges(session, outcome);
}

void BackgroundRun::analyseRanges(const std::shared_ptr<Session>& session, Outcome& outcome) {
    const CompanionLibrary companions = calcCompanions(session);
    clsNonPara request(companions);
    setUp(request, *session, m_Settings);
    const Run run(*session, rowRules(m_Settings));
    placeReport(session, companions, request, m_Settings, outcome);
}

void BackgroundRun::analyseTable(const std::shared_ptr<Session>& session, Outcome& outcome) {
    const UserTable table = findTable(m_Document, m_Settings, session->dataRows());
    const Run run(*session, rowRules(m_Settings));
    step();
    reshaping::Reshaped reshaped = reshape(table, m_Settings);
    session->noteOnReport(noteOn(reshaped.account, m_Settings));
    const CompanionLibrary companions = reshapedCompanions(session, table, std::move(reshaped), m_Settings);
    const AnalysisSettings settings = asColumns(m_Settings);
    clsNonPara request(companions);
    setUp(request, *session, settings);
    placeReport(session, companions, request, settings, outcome);
}

/// What stands beside the report is computed before it is placed, so that nothing else is done to the
/// document between the two, and one Undo takes both back.
void BackgroundRun::placeReport(const std::shared_ptr<Session>& session, const CompanionLibrary& companions,
                                clsNonPara& request, const AnalysisSettings& settings, Outcome& outcome) {
    const LiveFigures live(m_Document, settings);
    const RequestKeeper keeper(m_Document, m_Settings);
    if (!settings.details.wanted && !settings.details.picture) {
        request.Results(settings.overWrite);
        outcome.live = live.write(*session);
        keeper.write(*session);
        return;
    }
    DetailsBesideReport beside(session, companions, settings);
    beside.read();
    session->onFirstChange([&] {
        m_ReportComes = true;
        beside.compute(request.engine(), [this](double share) { watchDetails(share); });
    });
    request.Results(settings.overWrite);
    outcome.live = live.write(*session);
    keeper.write(*session);
    m_WritesDetails = true;
    beside.write();
    outcome.withoutDetails = beside.failure();
    outcome.withoutPicture = beside.pictureFailure();
    const bool failed = !outcome.withoutDetails.empty() || !outcome.withoutPicture.empty();
    outcome.detailsCancelled = failed && (m_Cancelled || m_DetailsCancelled);
}

void BackgroundRun::work() {
    Outcome outcome;
    try {
        analyse(outcome);
    } catch (const reshaping::Refusal& refusal) {
        outcome.refusal = refusal;
    } catch (...) {
        outcome.error = currentError();
        outcome.cancelled = m_Cancelled;
    }
    // The windows of the dialog belong to the main thread. Copies go along: what is called may
    // destroy this object.
    whenIdle(m_Context, [finished = m_Finished, outcome] { finished(outcome); });
}

}  // namespace TBVNonPara::calc
