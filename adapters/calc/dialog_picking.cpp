#include <com/sun/star/sheet/XRangeSelection.hpp>

#include "adapters/calc/analysis_dialog.hpp"

namespace TBVNonPara::calc {

namespace {

using css::uno::Any;

css::beans::PropertyValue named(const char* name, const Any& value) {
    return {OUString::createFromAscii(name), 0, value, css::beans::PropertyState_DIRECT_VALUE};
}

}  // namespace

/// The dialog hides while a range is dragged on the sheet.
void AnalysisDialog::pick(Field field) {
    const auto selection = query<css::sheet::XRangeSelection>(m_Frame->getController());
    m_Picking = field;
    m_View.show(false);
    selection->addRangeSelectionListener(this);
    selection->startRangeSelection(sequenceOf(
        named("InitialValue", Any(OUString())), named("Title", Any(fromUtf8(m_Texts.pickTitle))),
        named("CloseOnMouseRelease", Any(true)), named("SingleCellMode", Any(field == Field::Output))));
}

void AnalysisDialog::endPicking(const OUString& range) {
    const Field field = std::exchange(m_Picking, Field::None);
    const rtl::Reference<AnalysisDialog> whileWorking(this);
    query<css::sheet::XRangeSelection>(m_Frame->getController())->removeRangeSelectionListener(this);
    if (!m_Open) {
        return;
    }
    std::string text = toUtf8(range);
    if (!text.empty()) {
        // The picker gives one range at a time: another one is added to those that the field holds.
        const std::string held = m_View.text(field);
        const bool adds = field == Field::First && takesGroups(method()) && !isLong() && !held.empty();
        m_View.setText(field, adds ? held + ';' + text : text);
    }
    m_View.show(true);
    m_View.focus(field);
}

void AnalysisDialog::done(const css::sheet::RangeSelectionEvent& event) {
    endPicking(event.RangeDescriptor);
}

void AnalysisDialog::aborted(const css::sheet::RangeSelectionEvent&) {
    endPicking({});
}

}  // namespace TBVNonPara::calc
