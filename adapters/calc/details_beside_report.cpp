#include "adapters/calc/details_beside_report.hpp"

#include <algorithm>
#include <com/sun/star/awt/Point.hpp>
#include <com/sun/star/text/XTextRange.hpp>

#include "adapters/calc/calc_range.hpp"
#include "adapters/calc/column_widths.hpp"
#include "adapters/calc/picture_on_sheet.hpp"
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
    m_Details.wanted = settings.details.wanted;
    m_Picture.wanted = settings.details.picture;
}

/// What failed before takes no part; what a step fails at, all of its parts fail at.
void DetailsBesideReport::attempt(std::initializer_list<Part*> parts, const auto& step) {
    if (std::ranges::none_of(parts, [](const Part* part) { return part->comes(); })) {
        return;
    }
    const auto fail = [&](const std::string& words) {
        for (Part* part : parts) {
            if (part->comes()) {
                part->failure = words;
            }
        }
    };
    try {
        step();
    } catch (const std::invalid_argument& reason) {
        fail(reason.what());
    } catch (...) {
        fail(wordsOf(currentError()));
    }
}

std::vector<LabelledColumn> DetailsBesideReport::columnsAt(DataRange range,
                                                           const std::string& address) const {
    if (address.empty()) {
        return {};
    }
    const DataRangeScope scope(*m_Session, range, address);
    const RangeRef cells = m_Companions.application->GetRange(address);
    return columnsIn(*m_Companions.application, cells, m_Settings.headers);
}

void DetailsBesideReport::read() {
    attempt({&m_Details, &m_Picture}, [&] {
        m_Data.y = columnsAt(DataRange::First, m_Settings.firstRange);
        m_Data.x = columnsAt(DataRange::Second, m_Settings.secondRange);
    });
}

void DetailsBesideReport::compute(const clsNonParaBO& engine, const CountWatch& watch) {
    std::optional<Details> details;
    attempt({&m_Details}, [&] {
        const auto tests = offeredTests();
        const auto test = std::ranges::find(tests, m_Settings.method, &OfferedTest::method);
        std::vector<LabelledColumn> columns = m_Data.y;
        columns.insert(columns.end(), m_Data.x.begin(), m_Data.x.end());
        details = detailsOf(*test, m_Settings.tails, choicesIn(m_Settings.details), columns, engine, watch);
        m_Page = detailPage(*details);
    });
    attempt({&m_Picture}, [&] {
        m_Drawing = drawnData(m_Settings.method, m_Data, engine, details ? &*details : nullptr);
        if (m_Drawing.elements.empty()) {
            throw std::invalid_argument("There is nothing to draw.");
        }
    });
}

/// A picture alone has its explanation above it.
DetailPage DetailsBesideReport::page() const {
    DetailPage page;
    page.words.push_back(m_Drawing.description);
    return m_Details.comes() ? *m_Page : page;
}

/// Beside the tables where it ends above the notes, which run over the cells beside them; else below
/// everything.
CellArea DetailsBesideReport::cornerOfThePicture(const SheetAreas& details) const {
    const CellArea& block = details.areas.front();
    constexpr std::int32_t belowOneLine = 4;
    if (!m_Details.comes()) {
        return {block.left, belowOneLine, block.left, belowOneLine};
    }
    const auto topOf = [&](std::int32_t row) {
        css::awt::Point position;
        property(details.sheet->getCellByPosition(block.left, row), "Position") >>= position;
        return position.Y;
    };
    const auto beside = static_cast<std::int32_t>(firstTableRowOf(*m_Page)) - 1;
    const auto notes = block.bottom + 1 - static_cast<std::int32_t>(m_Page->notes.size());
    if (m_Page->notes.empty() || topOf(beside) + heightOnSheet(m_Drawing) <= topOf(notes)) {
        return {block.right + 2, beside, block.right + 2, beside};
    }
    const std::int32_t below = block.bottom + 3;
    return {block.left, below, block.left, below};
}

void DetailsBesideReport::writePicture(const SheetAreas& details) const {
    const CellArea corner = cornerOfThePicture(details);
    if (m_Details.comes()) {
        const Reference<css::text::XTextRange> line(
            details.sheet->getCellByPosition(corner.left, corner.top - 1), css::uno::UNO_QUERY_THROW);
        line->setString(fromUtf8(m_Drawing.description));
    }
    putPicture(m_Session->context(), {details.document, details.sheet, {corner}}, m_Drawing);
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
    std::optional<SheetAreas> written;
    attempt({&m_Details, &m_Picture}, [&] {
        m_Session->nameNewSheets({});
        m_Companions.application->LetScreenUpdating(false);
        const RangeRef report = makeObject<CalcRange>(m_Session, m_Session->placed());
        const RangeRef details = writeDetailsSheet(m_Companions, report, page());
        widenFor(cellsOf(details));
        written = cellsOf(details);
    });
    if (written) {
        attempt({&m_Picture}, [&] { writePicture(*written); });
    }
}

}  // namespace TBVNonPara::calc
