#include "adapters/calc/session.hpp"

#include <algorithm>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/text/XTextRange.hpp>

#include "adapters/calc/scratch_document.hpp"

namespace TBVNonPara::calc {

Session::Session(const Context& context, const DocumentRef& document)
    : m_Context(context), m_Document(document) {
}

DocumentRef Session::document() const {
    return m_Document.is() ? m_Document : activeDocument(m_Context);
}

const SheetAreas& Session::copied() const {
    if (!m_Copied.sheet.is()) {
        raiseHostError("Nothing was copied that could be pasted.");
    }
    return m_Copied;
}

const RememberedCells* Session::remembered(const SheetRef& sheet, const CellArea& area) const {
    for (const RememberedCells& reading : m_Readings) {
        if (reading.cover(sheet, area)) {
            return &reading;
        }
    }
    return nullptr;
}

void Session::remember(const SheetRef& sheet, const CellArea& area, const ValueGrid& values) {
    if (m_Running) {
        m_Readings.emplace_back(sheet, area, values);
    }
}

void Session::beginRun(const RowRules& rules) {
    if (m_DataRows) {
        hosted([&] { m_DataRows->count(rules); });
    }
    m_Running = true;
    holdViews(document());
}

void Session::endRun() noexcept {
    m_Running = false;
    m_Readings.clear();
    m_OnFirstChange = {};
    m_Placed = {};
    m_AddedSheet = {};
    m_Step.close();
    releaseViews();
}

void Session::holdViews(const DocumentRef& document) {
    releaseViews();
    query<css::frame::XModel>(document)->lockControllers();
    m_Held = document;
}

void Session::releaseViews() noexcept {
    const DocumentRef held = std::exchange(m_Held, {});
    try {
        if (held.is()) {
            query<css::frame::XModel>(held)->unlockControllers();
        }
    } catch (const css::uno::Exception&) {
        // The document was closed in the meantime: nothing of it is held any more.
    }
}

void Session::beforeChange(const DocumentRef& document) {
    refuseReadOnly(document);
    m_Readings.clear();
    if (m_Running && !m_Step.isOpen() && !isScratch(document)) {
        if (const auto work = std::exchange(m_OnFirstChange, {})) {
            work();
        }
        m_Step.open(document, reportTitle());
    }
}

void Session::removeAddedSheet() {
    const AddedSheet added = std::exchange(m_AddedSheet, {});
    if (added.document.is() && sheetsOf(added.document)->hasByName(added.name)) {
        removeSheet(added.document, added.name);
        added.before.removeAdded();
    }
}

void Session::forgetBooleans(const SheetRef& sheet, const CellArea& area) {
    std::erase_if(m_Booleans, [&](const BooleanCell& boolean) {
        return area.contains(boolean.cell) && boolean.sheet == sheet;
    });
}

std::vector<CellArea> Session::booleansIn(const SheetRef& sheet, const CellArea& area) const {
    std::vector<CellArea> cells;
    for (const BooleanCell& boolean : m_Booleans) {
        if (area.contains(boolean.cell) && boolean.sheet == sheet) {
            cells.push_back(boolean.cell);
        }
    }
    return cells;
}

void Session::step() const {
    if (m_OnStep) {
        m_OnStep();
    }
}

std::vector<KeptRowsRef> Session::rowsOf(const SheetAreas& cells) const {
    return m_DataRows && m_ResolvingFor ? m_DataRows->name(*m_ResolvingFor, cells)
                                        : std::vector<KeptRowsRef>();
}

// The addresses in a report are those of whole ranges: which of their rows took part stands beside it.
std::string Session::note() const {
    const bool hidden = m_DataRows && !m_DataRows->leftOut().empty();
    return (hidden ? "Visible rows only. Left out as filtered or hidden:\n" + m_DataRows->leftOut() : "") +
           m_Note;
}

OUString Session::reportTitle() const {
    if (!m_StepTitle.isEmpty()) {
        return m_StepTitle;
    }
    const DocumentRef scratch = documentNamed(m_Context, scratchWorkbookName);
    const Reference<css::text::XTextRange> cell(sheetAt(scratch, 0)->getCellByPosition(0, 0),
                                                css::uno::UNO_QUERY_THROW);
    OUString title = cell->getString();
    // The heading reads "Mann-Whitney Test Results for:".
    title.endsWith(" for:", &title);
    return title;
}

}  // namespace TBVNonPara::calc
