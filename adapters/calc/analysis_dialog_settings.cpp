#include <algorithm>
#include <com/sun/star/frame/XModel.hpp>
#include <cppuhelper/weakref.hxx>

#include "adapters/calc/analysis_dialog.hpp"
#include "adapters/calc/kept_choices.hpp"

namespace TBVNonPara::calc {

namespace {

/// What the last dialog of a document was left with; it lasts as long as the document is open. The first one
/// begins with the choices that were kept of others.
AnalysisSettings& lastSettings(const Context& context, const DocumentRef& document) {
    using Remembered = std::pair<css::uno::WeakReference<css::sheet::XSpreadsheetDocument>, AnalysisSettings>;
    static std::vector<Remembered> all;
    std::erase_if(all, [](const Remembered& one) { return !one.first.get().is(); });
    const auto found =
        std::ranges::find_if(all, [&](const Remembered& one) { return one.first.get() == document; });
    return found != all.end() ? found->second : all.emplace_back(document, keptChoices(context)).second;
}

}  // namespace

void AnalysisDialog::rememberSettings() const {
    AnalysisSettings left = settings();
    left.ignoreTies = m_View.checked(controls::ignoreTies);  // also where another test has no such box
    keepChoices(m_Context, left);
    // A window that is closed has no document any more.
    const Reference<css::frame::XController> controller = m_Frame->getController();
    if (controller.is() && controller->getModel().is()) {
        lastSettings(m_Context, document()) = left;
    }
}

void AnalysisDialog::showSettings() {
    const AnalysisSettings& last = lastSettings(m_Context, document());
    m_View.select(controls::test, last.method);
    m_View.fillWith(controls::alternative, alternativesOf(last.method, true, {}, m_Language));
    m_View.select(controls::alternative, last.tails);
    m_View.setText(Field::First, last.firstRange);
    m_View.setText(Field::Second, last.secondRange);
    m_View.check(controls::groupsInColumn, last.groupsInOneColumn);
    m_View.setText(Field::Groups, last.groupRange);
    m_View.setText(Field::Blocks, last.blockRange);
    m_Groups = GroupTicks(last.groups);
    m_View.setText(Field::Output, last.outputCell);
    m_View.check(controls::newSheet, last.outputCell.empty());
    m_View.check(controls::cell, !last.outputCell.empty());
    m_View.check(controls::overwrite, last.overWrite);
    m_View.check(controls::labels, last.headers);
    m_View.check(controls::descriptives, last.descriptives);
    m_View.check(controls::ignoreTies, last.ignoreTies);
    m_View.check(controls::missing, last.omitMissing);
    m_View.check(controls::details, last.details.wanted);
    m_View.setText(Field::Confidence, last.details.confidence);
    m_View.select(controls::adjustment, static_cast<std::int32_t>(last.details.adjustment));
    m_View.check(controls::picture, last.details.picture);
    m_View.check(controls::live, last.liveFigures);
}

AnalysisDialog::DataTexts AnalysisDialog::dataTexts() const {
    DataTexts texts;
    std::ranges::transform(dataFields, texts.begin(), [&](Field field) { return m_View.text(field); });
    return texts;
}

AnalysisDialog::DataTexts AnalysisDialog::suggested(const SheetAreas& selection) const {
    if (isLong()) {
        const std::vector<std::string> columns = columnAddresses(selection, 3);
        return {columns[0], "", columns[1], takesBlocks(method()) ? columns[2] : ""};
    }
    const Suggestion suggestion = suggest(selection, takesGroups(method()), takesTwoRanges(method()));
    return {suggestion.first, suggestion.second, "", ""};
}

/// Selected cells go into the fields, but never over what the user has typed.
void AnalysisDialog::prefill() {
    const SheetAreas selection = selectedCells(document());
    if (selection.areas.empty() || (m_Open && dataTexts() != m_Prefilled)) {
        return;
    }
    m_Prefilled = suggested(selection);
    for (std::size_t field = 0; field < dataFields.size(); ++field) {
        m_View.setText(dataFields.at(field), m_Prefilled.at(field));
    }
    if (!m_Open) {
        m_View.check(controls::labels, suggest(selection, false, false).labels);
    }
}

AnalysisSettings AnalysisDialog::settings() const {
    AnalysisSettings settings;
    settings.method = method();
    settings.tails = static_cast<TBVNPTails>(m_View.selected(controls::alternative));
    settings.headers = m_View.checked(controls::labels);
    settings.descriptives = m_View.checked(controls::descriptives);
    settings.ignoreTies = settings.method == tbvNPWilcoxon && m_View.checked(controls::ignoreTies);
    settings.firstRange = m_View.text(Field::First);
    settings.groupsInOneColumn = isLong();
    if (settings.groupsInOneColumn) {
        settings.groupRange = m_View.text(Field::Groups);
        settings.blockRange = takesBlocks(settings.method) ? m_View.text(Field::Blocks) : std::string();
        settings.groups = m_Groups.ticked();
    } else if (takesTwoRanges(settings.method)) {
        settings.secondRange = m_View.text(Field::Second);
    }
    settings.outputCell = m_View.checked(controls::cell) ? m_View.text(Field::Output) : std::string();
    settings.overWrite = m_View.checked(controls::overwrite);
    settings.newSheetName = m_Texts.sheets[static_cast<std::size_t>(settings.method)];
    settings.visibleRowsOnly = m_Hidden.hidden > 0 && m_View.checked(controls::visibleRows);
    settings.omitMissing = m_Missing.missing + m_Missing.unnamed > 0 && m_View.checked(controls::missing);
    settings.details = {m_View.checked(controls::details), m_View.text(Field::Confidence),
                        static_cast<statistics::Adjustment>(m_View.selected(controls::adjustment)),
                        m_View.checked(controls::picture)};
    settings.liveFigures = m_View.checked(controls::live);
    return settings;
}

}  // namespace TBVNonPara::calc
