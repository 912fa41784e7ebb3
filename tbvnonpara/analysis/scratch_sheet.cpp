#include "tbvnonpara/analysis/scratch_sheet.hpp"

#include <utility>

#include "tbvnonpara/analysis/user_range.hpp"

namespace TBVNonPara::analysis {

ScratchSheet::ScratchSheet(const workbook::EmbeddedApplication& application, std::string_view name) {
    const std::shared_ptr<workbook::Book> book = application.activeBook();
    m_Sheet = book->addSheet(book->freeSheetName(name));
}

ScratchSheet::~ScratchSheet() {
    m_Sheet->book()->removeSheet(*m_Sheet);
}

void ScratchSheet::put(Index column, const std::optional<CellValue>& label,
                       std::span<const CellValue> cells) {
    if (label) {
        m_Sheet->values().set(1, column, *label);
    }
    m_Sheet->values().write(label ? 2 : 1, column, cells);
}

std::string ScratchSheet::address(const Rectangle& cells) const {
    return quotedSheetName(m_Sheet->name()) + '!' + plainAddress(cells);
}

ShownAddress ScratchSheet::shownAs(const Rectangle& cells, std::string shown) const {
    return {shownInReports(*m_Sheet, {cells}), std::move(shown)};
}

}  // namespace TBVNonPara::analysis
