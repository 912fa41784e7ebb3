#include <algorithm>
#include <array>

#include "adapters/calc/addresses.hpp"
#include "adapters/calc/analysis_dialog.hpp"
#include "adapters/calc/outcome_words.hpp"
#include "adapters/calc/refusal_words.hpp"

namespace TBVNonPara::calc {

namespace {

bool isAboutMissingValues(std::int32_t number) noexcept {
    return number == tbvNPTextInData || number == tbvNPErrorInData || number == tbvNPBlankInData;
}

}  // namespace

void AnalysisDialog::showError(const Error& error) {
    RequestNames names;
    names.y = m_View.text(Field::First);
    names.x = m_View.text(Field::Second);
    std::string words = plainWords(error, method(), names, m_Language);
    if (m_State.missing && isAboutMissingValues(error.number())) {
        words += ' ' + remedyText(m_Texts, reshaping::Remedy::OmitMissing);
    }
    showMessage(fieldOf(error), words);
}

void AnalysisDialog::showRefusal(const reshaping::Refusal& refusal) {
    showMessage(fieldOf(refusal), refusalWords(refusal, m_Language));
}

void AnalysisDialog::showWhatIsMissing(const Outcome& outcome) {
    showMessage(Field::None, wordsOnWhatIsMissing(outcome, m_Texts));
}

void AnalysisDialog::showMessage(Field field, const std::string& words) {
    m_View.setMessage(field, words);
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
            return m_State.secondRange ? Field::Second : Field::First;
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

Field AnalysisDialog::fieldOf(const reshaping::Refusal& refusal) const {
    if (!isLong()) {
        return fieldOf(static_cast<const Error&>(refusal));
    }
    switch (refusal.reason()) {
        case reshaping::Reason::BlocksIncomplete:
        case reshaping::Reason::SecondValue:
            return Field::Blocks;
        case reshaping::Reason::NotANumber:
        case reshaping::Reason::ValuesMissing:
        case reshaping::Reason::NothingLeft:
            return Field::First;
        default:
            return Field::Groups;
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
