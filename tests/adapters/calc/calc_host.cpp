#include "tests/adapters/calc/calc_host.hpp"

#include <com/sun/star/container/XNamed.hpp>

#include "adapters/calc/calc_application.hpp"
#include "adapters/calc/writing.hpp"
#include "tests/adapters/calc/lost_formats.hpp"

namespace TBVNonPara::Scenarios {

namespace {

using namespace TBVNonPara::calc;

/// A request as the add-in makes it: within a run of its session.
class CalcRequest : public Request {
 public:
    CalcRequest(std::shared_ptr<Session> session, std::unique_ptr<Request> request)
        : m_Session(std::move(session)), m_Request(std::move(request)) {}

    void LetMethod(TBVNPMethod method) override { m_Request->LetMethod(method); }
    void LetHeaders(bool headers) override { m_Request->LetHeaders(headers); }
    void LetOutputDescriptives(bool wanted) override { m_Request->LetOutputDescriptives(wanted); }
    void LetIgnoreTies(bool ignoreTies) override { m_Request->LetIgnoreTies(ignoreTies); }
    void LetTails(TBVNPTails tails) override { m_Request->LetTails(tails); }
    void LetYRange(std::string_view address) override { m_Request->LetYRange(address); }
    void LetXRange(std::string_view address) override { m_Request->LetXRange(address); }
    void LetOutputRange(std::string_view address) override { m_Request->LetOutputRange(address); }
    void Results(bool OverWrite) override {
        const Run run(*m_Session);
        m_Request->Results(OverWrite);
    }

 private:
    std::shared_ptr<Session> m_Session;
    std::unique_ptr<Request> m_Request;
};

/// An empty text is not kept as a value; only a formula gives one.
void writeEmptyTexts(const SheetRef& sheet, const ValueGrid& cells) {
    for (Index column = 1; column <= toIndex(cells.columns()); ++column) {
        for (Index row = 1; row <= toIndex(cells.rows()); ++row) {
            if (cells(row, column) == CellValue(Text())) {
                sheet->getCellByPosition(static_cast<sal_Int32>(column - 1), static_cast<sal_Int32>(row - 1))
                    ->setFormula("=\"\"");
            }
        }
    }
}

}  // namespace

CalcHost::CalcHost(std::shared_ptr<OpenDocument> open, const std::shared_ptr<Session>& session)
    : LibraryHost(makeObject<CalcApplication>(session)), m_Open(std::move(open)), m_Session(session) {
}

void CalcHost::addSheet(std::string_view name, const ValueGrid& cells) {
    const auto sheets = document()->getSheets();
    if (m_Sheets == 0) {
        query<css::container::XNamed>(sheetAt(document(), 0))->setName(fromUtf8(name));
    } else {
        sheets->insertNewByName(fromUtf8(name), m_Sheets);
    }
    m_Sheets = static_cast<std::int16_t>(m_Sheets + 1);
    const SheetRef sheet = sheetNamed(document(), fromUtf8(name));
    if (cells.allocated() && cells.rows() > 0 && cells.columns() > 0) {
        writeCells(document(), sheet, {0, 0, cells.columns().value() - 1, cells.rows().value() - 1}, cells);
        writeEmptyTexts(sheet, cells);
    }
}

std::unique_ptr<Request> CalcHost::createRequest() {
    return std::make_unique<CalcRequest>(m_Session, LibraryHost::createRequest());
}

std::vector<std::string> CalcHost::formatting() const {
    std::vector<std::string> calls = LibraryHost::formatting();
    if (!reportAddress().empty()) {
        std::ranges::copy(formatsLostAt(reportAddress()), std::back_inserter(calls));
    }
    return calls;
}

SheetAreas CalcHost::cellsAt(std::string_view address) const {
    return resolve(document(), activeSheet(document()), address);
}

std::vector<std::string> CalcHost::formatsLostAt(std::string_view address) const {
    return lostFormats(documentNamed(officeContext(), scratchWorkbookName), cellsAt(address));
}

}  // namespace TBVNonPara::Scenarios
