#include <algorithm>

#include "adapters/calc/addresses.hpp"
#include "adapters/calc/analysis_dialog.hpp"

namespace TBVNonPara::calc {

void AnalysisDialog::showError(const Error& error) {
    const Field field = fieldOf(error);
    RequestNames names;
    names.y = m_View.text(Field::First);
    names.x = m_View.text(Field::Second);
    m_View.setMessage(field, plainWords(error, method(), names, m_Language));
    arrange();
    m_View.focus(field);
}

Field AnalysisDialog::fieldOf(const Error& error) const {
    switch (error.number()) {
        case tbvNPBadOutputRange:
        case tbvNPOutputOffSheet:
        case tbvNPOutputOccupied:
            return m_State.outputCell ? Field::Output : Field::None;
        case tbvNPBadXRange:
        case tbvNPNoXRange:
        case tbvNPUnequalPairs:
        case tbvNPXRangeColumns:
            return Field::Second;
        case tbvNPBadYRange:
        case tbvNPNoYRange:
        case tbvNPTooFewGroups:
        case tbvNPTooFewRows:
        case tbvNPYRangeColumns:
        case tbvNPInvalidSignSymbols:
            return Field::First;
        case tbvNPTextInData:
        case tbvNPBooleanInData:
        case tbvNPErrorInData:
        case tbvNPBlankInData:
        case tbvNPNoData:
            return fieldHolding(error.description());
        default:
            return Field::None;
    }
}

/// Which of the two ranges holds the cell that an error's text begins with.
Field AnalysisDialog::fieldHolding(const std::string& description) const {
    if (!m_State.secondRange || m_View.text(Field::Second).empty()) {
        return Field::First;
    }
    try {
        const SheetRef sheet = activeSheet(document());
        const SheetAreas cell = resolve(document(), sheet, description.substr(0, description.find(' ')));
        const SheetAreas first = resolve(document(), sheet, m_View.text(Field::First));
        const bool inFirst =
            first.sheet == cell.sheet && std::ranges::any_of(first.areas, [&](const CellArea& area) {
                return area.contains(cell.areas.front());
            });
        return inFirst ? Field::First : Field::Second;
    } catch (...) {
        return Field::First;
    }
}

}  // namespace TBVNonPara::calc
