#include <com/sun/star/awt/Key.hpp>

#include "adapters/calc/analysis_dialog.hpp"
#include "adapters/calc/main_thread.hpp"
#include "adapters/calc/sample_names.hpp"

namespace TBVNonPara::calc {

bool AnalysisDialog::isLong() const {
    return takesLongTable(method()) && m_View.checked(controls::groupsInColumn);
}

bool AnalysisDialog::readTable() {
    const bool groupsChanged =
        isLong() && m_Groups.show(groupsNamed(document(), settings()), !takesGroups(method()));
    if (groupsChanged) {
        showGroups(-1);
    }
    const reshaping::Account missing = countMissing(document(), settings());
    const std::string label = missingLabel(m_Texts, missing);
    if (label == missingLabel(m_Texts, m_Missing)) {
        return groupsChanged;
    }
    m_Missing = missing;
    m_View.setBoxLabel(controls::missing, label);
    return true;
}

bool AnalysisDialog::readNames() {
    SampleNames names = sampleNames(document(), settings());
    std::swap(m_Names, names);
    return names != m_Names;
}

void AnalysisDialog::showGroups(std::int32_t selected) {
    m_View.showGroups(m_Groups.lines(), selected);
}

void AnalysisDialog::tick() {
    const std::int32_t place = m_Open && !m_Run ? m_View.selectedGroup() : -1;
    if (place >= 0) {
        m_Groups.toggle(static_cast<std::size_t>(place));
        showGroups(place);
        m_View.clearMessages();
        countRows();
        arrange();
    }
}

void AnalysisDialog::moveGroup(int by) {
    const std::int32_t place = m_View.selectedGroup();
    if (place >= 0) {
        showGroups(static_cast<std::int32_t>(m_Groups.move(static_cast<std::size_t>(place), by)));
        if (readNames()) {
            arrange();
        }
    }
}

// The list learns of the click after its listeners.
void AnalysisDialog::mousePressed(const css::awt::MouseEvent& event) {
    if (m_View.isAtTicks(event.X) || event.ClickCount == 2) {
        const rtl::Reference<AnalysisDialog> self(this);
        whenIdle(m_Context, [self] { self->tick(); });
    }
}

void AnalysisDialog::keyPressed(const css::awt::KeyEvent& event) {
    if (event.KeyCode == css::awt::Key::SPACE) {
        const rtl::Reference<AnalysisDialog> self(this);
        whenIdle(m_Context, [self] { self->tick(); });
    }
}

std::string AnalysisDialog::faultOf(Field field) const {
    const std::string address = m_View.text(field);
    if (address.empty()) {
        return field == Field::Groups   ? std::string(m_Texts.chooseGroupRange)
               : field == Field::Blocks ? std::string(m_Texts.chooseBlockRange)
                                        : plainWords(Error(tbvNPNoYRange), method(), {}, m_Language);
    }
    try {
        const SheetAreas cells = resolve(document(), activeSheet(document()), address);
        const bool oneColumn = cells.areas.size() == 1 && cells.areas.front().columns() == 1;
        return std::string(oneColumn ? std::string_view() : m_Texts.oneColumn);
    } catch (...) {
        return filledIn(m_Texts.noRange, std::array{address});
    }
}

bool AnalysisDialog::refuseTable() {
    for (const Field field : {Field::First, Field::Groups, Field::Blocks}) {
        const std::string fault = field != Field::Blocks || m_State.blocks ? faultOf(field) : std::string();
        if (!fault.empty()) {
            showMessage(field, fault);
            return true;
        }
    }
    readTable();
    const std::size_t ticked = m_Groups.ticked().size();
    const bool several = takesGroups(method());
    if (m_Groups.size() < 2 || ticked == 2 || (several && ticked > 2)) {
        return false;
    }
    showMessage(Field::Groups, std::string(several ? m_Texts.tickSeveral : m_Texts.tickTwo));
    return true;
}

}  // namespace TBVNonPara::calc
