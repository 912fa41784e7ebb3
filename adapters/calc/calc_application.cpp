#include "adapters/calc/calc_application.hpp"

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/util/XProtectable.hpp>

#include "adapters/calc/calc_range.hpp"
#include "adapters/calc/calc_worksheet.hpp"
#include "adapters/calc/placing.hpp"

namespace TBVNonPara::calc {

namespace {

/// The first name of the spreadsheet's usual kind that is free: "Sheet4".
OUString freeName(const Reference<css::sheet::XSpreadsheets>& sheets) {
    sal_Int32 number = query<css::container::XIndexAccess>(sheets)->getCount();
    OUString name;
    do {
        number += 1;
        name = "Sheet" + OUString::number(number);
    } while (sheets->hasByName(name));
    return name;
}

/// A name, or the first of "Wilcoxon (2)", "Wilcoxon (3)" and so on that is free.
OUString freeName(const Reference<css::sheet::XSpreadsheets>& sheets, const OUString& wanted) {
    OUString name = wanted;
    for (sal_Int32 number = 2; sheets->hasByName(name); ++number) {
        name = wanted + " (" + OUString::number(number) + ")";
    }
    return name;
}

}  // namespace

CompanionLibrary calcCompanions(const std::shared_ptr<Session>& session) {
    static const auto running = std::make_shared<std::atomic<bool>>(false);
    CompanionLibrary companions = ownCompanions(makeObject<CalcApplication>(session));
    companions.running = running;
    return companions;
}

CalcApplication::CalcApplication(std::shared_ptr<Session> session)
    : m_Session(std::move(session)), m_Functions(m_Session) {
}

RangeRef CalcApplication::GetRange(std::string_view address) const {
    return hosted([&]() -> RangeRef {
        const DocumentRef document = m_Session->document();
        SheetAreas cells = resolve(document, activeSheet(document), address);
        std::vector<KeptRowsRef> rows = m_Session->rowsOf(cells);
        return makeObject<CalcRange>(m_Session, std::move(cells), std::move(rows));
    });
}

RangeRef CalcApplication::GetRange(const RangeRef& first, const RangeRef& last) const {
    return rangeBetween(m_Session, first, last);
}

WorkbookRef CalcApplication::GetWorkbooks(std::string_view name) const {
    return hosted([&]() -> WorkbookRef {
        return makeObject<CalcWorkbook>(m_Session, documentNamed(m_Session->context(), name));
    });
}

WorksheetRef CalcApplication::AddWorksheets() {
    return hosted([&]() -> WorksheetRef {
        const DocumentRef document = m_Session->document();
        m_Session->step();
        m_Session->beforeChange(document);
        if (query<css::util::XProtectable>(document)->isProtected()) {
            const bool isForReport = !m_Session->placed().sheet.is();
            raiseHostError(
                std::string("The document's structure is protected, so it takes no new sheet; remove the "
                            "protection") +
                (isForReport ? " or choose a cell for the report." : "."));
        }
        const auto sheets = sheetsOf(document);
        const OUString wanted = m_Session->newSheetName();
        const OUString name = wanted.isEmpty() ? freeName(sheets) : freeName(sheets, wanted);
        const std::int16_t position = positionOf(activeSheet(document));
        const MacroModules before(document);
        sheets->insertNewByName(name, position);
        m_Session->rememberAddedSheet(document, name, before);
        const SheetRef sheet = sheetNamed(document, name);
        activate(*m_Session, document, sheet);
        return makeObject<CalcWorksheet>(m_Session, document, sheet);
    });
}

void CalcApplication::LetScreenUpdating(bool updating) {
    hosted([&] {
        if (updating) {
            m_Session->releaseViews();
        } else {
            m_Session->holdViews(m_Session->document());
        }
    });
}

}  // namespace TBVNonPara::calc
