#include "adapters/calc/details_beside_report.hpp"

#include <algorithm>
#include <iterator>

#include "adapters/calc/calc_range.hpp"
#include "adapters/calc/column_widths.hpp"
#include "tbvnonpara/details/host_columns.hpp"
#include "tbvnonpara/details/page.hpp"
#include "tbvnonpara/report/details_sheet.hpp"

namespace TBVNonPara::calc {

namespace {

DetailChoices choicesIn(const DetailSettings& settings) {
    DetailChoices choices;
    choices.confidence = levelIn(settings.confidence).value_or(choices.confidence);
    choices.adjustment = settings.adjustment;
    return choices;
}

std::string wordsOf(const Error& error) {
    return error.description().empty() ? "Error " + std::to_string(error.number()) + '.'
                                       : error.description();
}

}  // namespace

DetailsBesideReport::DetailsBesideReport(std::shared_ptr<Session> session, CompanionLibrary companions,
                                         const AnalysisSettings& settings)
    : m_Session(std::move(session)), m_Companions(std::move(companions)), m_Settings(settings) {
}

/// After a step that failed there are no others.
void DetailsBesideReport::attempt(const auto& step) {
    if (!m_Failure.empty()) {
        return;
    }
    try {
        step();
    } catch (const std::invalid_argument& reason) {
        m_Failure = reason.what();
    } catch (...) {
        m_Failure = wordsOf(currentError());
    }
}

void DetailsBesideReport::readRange(DataRange range, const std::string& address) {
    if (address.empty()) {
        return;
    }
    const DataRangeScope scope(*m_Session, range, address);
    const RangeRef cells = m_Companions.application->GetRange(address);
    std::ranges::move(columnsIn(*m_Companions.application, cells, m_Settings.headers),
                      std::back_inserter(m_Columns));
}

void DetailsBesideReport::read() {
    attempt([&] {
        readRange(DataRange::First, m_Settings.firstRange);
        readRange(DataRange::Second, m_Settings.secondRange);
    });
}

void DetailsBesideReport::compute(const clsNonParaBO& engine, const CountWatch& watch) {
    attempt([&] {
        const auto tests = offeredTests();
        const auto test = std::ranges::find(tests, m_Settings.method, &OfferedTest::method);
        m_Page = detailPage(
            detailsOf(*test, m_Settings.tails, choicesIn(m_Settings.details), m_Columns, engine, watch));
    });
}

void DetailsBesideReport::widenFor(const SheetAreas& details) const {
    try {
        widenColumns(m_Session->context(), details);
    } catch (...) {
        // They are written: a column that cuts a label can still be widened by hand.
        return;
    }
}

void DetailsBesideReport::write() {
    attempt([&] {
        m_Session->nameNewSheets({});
        m_Companions.application->LetScreenUpdating(false);
        const RangeRef report = makeObject<CalcRange>(m_Session, m_Session->placed());
        const RangeRef details = writeDetailsSheet(m_Companions, report, m_Page.value());
        widenFor(cellsOf(details));
    });
}

}  // namespace TBVNonPara::calc
