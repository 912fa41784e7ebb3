#include "adapters/calc/analysis_dialog.hpp"

#include <algorithm>
#include <array>
#include <com/sun/star/awt/XWindowPeer.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/TerminationVetoException.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/task/XStatusIndicatorFactory.hpp>
#include <cppuhelper/weakref.hxx>

#include "adapters/calc/office_language.hpp"

namespace TBVNonPara::calc {

namespace {

/// What the last dialog of a document was left with; it lasts as long as the document is open.
AnalysisSettings& lastSettings(const DocumentRef& document) {
    using Remembered = std::pair<css::uno::WeakReference<css::sheet::XSpreadsheetDocument>, AnalysisSettings>;
    static std::vector<Remembered> all;
    std::erase_if(all, [](const Remembered& one) { return !one.first.get().is(); });
    const auto found =
        std::ranges::find_if(all, [&](const Remembered& one) { return one.first.get() == document; });
    return found != all.end() ? found->second : all.emplace_back(document, AnalysisSettings()).second;
}

/// The dialogs that are open: one for a window at most.
std::vector<AnalysisDialog*>& openDialogs() {
    static std::vector<AnalysisDialog*> dialogs;
    return dialogs;
}

}  // namespace

void AnalysisDialog::openFor(const Context& context, const Reference<css::frame::XFrame>& frame) {
    for (AnalysisDialog* dialog : openDialogs()) {
        if (dialog->m_Frame == frame) {
            dialog->m_View.bringToFront();
            return;
        }
    }
    const rtl::Reference<AnalysisDialog> dialog(new AnalysisDialog(context, frame));
    dialog->open();
}

AnalysisDialog::AnalysisDialog(const Context& context, const Reference<css::frame::XFrame>& frame)
    : m_Context(context),
      m_Frame(frame),
      m_Language(languageOfTheOffice(context)),
      m_Texts(dialogTexts(m_Language)),
      m_View(context, m_Texts) {
}

DocumentRef AnalysisDialog::document() const {
    return query<css::sheet::XSpreadsheetDocument>(m_Frame->getController()->getModel());
}

TBVNPMethod AnalysisDialog::method() const {
    return static_cast<TBVNPMethod>(m_View.selected(controls::test));
}

void AnalysisDialog::open() {
    m_View.fill(controls::test, m_Texts.tests);
    showSettings();
    prefill();
    countRows();
    const auto parent = query<css::awt::XWindowPeer>(m_Frame->getContainerWindow());
    m_View.create(parent);
    arrange();
    m_View.open(parent);
    m_View.listen(this, this, this, this);
    m_Frame->addEventListener(static_cast<css::awt::XActionListener*>(this));
    openDialogs().push_back(this);
    m_Open = true;
    m_View.focus(Field::First);
}

void AnalysisDialog::close() {
    if (!m_Open) {
        return;
    }
    const rtl::Reference<AnalysisDialog> whileClosing(this);
    m_Open = false;
    rememberSettings();
    std::erase(openDialogs(), this);
    if (m_Run) {
        m_Run->cancel();
    }
    m_Frame->removeEventListener(static_cast<css::awt::XActionListener*>(this));
    m_View.close();
}

void AnalysisDialog::rememberSettings() const {
    // A window that is closed has no document any more.
    const Reference<css::frame::XController> controller = m_Frame->getController();
    if (controller.is() && controller->getModel().is()) {
        lastSettings(document()) = settings();
    }
}

void AnalysisDialog::showSettings() {
    const AnalysisSettings& last = lastSettings(document());
    m_View.select(controls::test, last.method);
    m_View.fill(controls::alternative, alternativesOf(last.method, true, m_Language));
    m_View.select(controls::alternative, last.tails);
    m_View.setText(Field::First, last.firstRange);
    m_View.setText(Field::Second, last.secondRange);
    m_View.setText(Field::Output, last.outputCell);
    m_View.check(controls::newSheet, last.outputCell.empty());
    m_View.check(controls::cell, !last.outputCell.empty());
    m_View.check(controls::overwrite, last.overWrite);
    m_View.check(controls::labels, last.headers);
    m_View.check(controls::descriptives, last.descriptives);
    m_View.check(controls::ignoreTies, last.ignoreTies);
    m_View.check(controls::missing, last.omitMissing);
}

/// Selected cells go into the fields, but never over what the user has typed.
void AnalysisDialog::prefill() {
    const bool untouched =
        m_View.text(Field::First) == m_FirstPrefilled && m_View.text(Field::Second) == m_SecondPrefilled;
    const SheetAreas selection = selectedCells(document());
    if (selection.areas.empty() || (m_Open && !untouched)) {
        return;
    }
    const Suggestion suggestion = suggest(selection, takesGroups(method()), takesTwoRanges(method()));
    m_FirstPrefilled = suggestion.first;
    m_SecondPrefilled = suggestion.second;
    m_View.setText(Field::First, suggestion.first);
    m_View.setText(Field::Second, suggestion.second);
    if (!m_Open) {
        m_View.check(controls::labels, suggestion.labels);
    }
}

bool AnalysisDialog::countHidden() {
    const std::string second = takesTwoRanges(method()) ? m_View.text(Field::Second) : std::string();
    const HiddenCount count = countHiddenRows(document(), std::array{m_View.text(Field::First), second});
    if (count == m_Hidden) {
        return false;
    }
    m_Hidden = count;
    m_View.check(controls::visibleRows, count.filtered);
    m_View.setBoxLabel(controls::visibleRows, visibleRowsLabel(m_Texts, count.hidden, count.all));
    return true;
}

bool AnalysisDialog::countRows() {
    const bool hiddenChanged = countHidden();
    const reshaping::Account missing = countMissing(document(), settings());
    if (missing.missing == m_Missing.missing && missing.units == m_Missing.units &&
        missing.unit == m_Missing.unit) {
        return hiddenChanged;
    }
    m_Missing = missing;
    m_View.setBoxLabel(controls::missing, missingLabel(m_Texts, missing));
    return true;
}

void AnalysisDialog::arrange() {
    const TBVNPMethod test = method();
    const bool groups = takesGroups(test);
    const std::int32_t alternative = m_View.selected(controls::alternative);
    m_View.fill(controls::alternative, alternativesOf(test, !m_View.text(Field::Second).empty(), m_Language));
    m_View.select(controls::alternative, alternative);
    m_View.setLabel(Field::First,
                    groups                ? m_Texts.groupRanges
                    : test == tbvNPWWRuns ? m_Texts.dataRange
                                          : m_Texts.firstRange,
                    groups ? m_Texts.severalAreas : std::string_view());
    m_View.setLabel(Field::Second, test == tbvNPSign ? m_Texts.groupingRange : m_Texts.secondRange, {});
    m_State.alternatives = !groups;
    m_State.secondRange = takesTwoRanges(test);
    m_State.hiddenRows = m_Hidden.hidden > 0;
    m_State.missing = m_Missing.missing > 0;
    m_State.ignoreTies = test == tbvNPWilcoxon;
    m_State.outputCell = m_View.checked(controls::cell);
    m_View.setCloseLabel(m_State.running ? m_Texts.cancel : m_Texts.close);
    m_View.arrange(m_State);
}

void AnalysisDialog::actionPerformed(const css::awt::ActionEvent& event) {
    const rtl::Reference<AnalysisDialog> whileWorking(this);
    if (event.ActionCommand.equalsAscii(controls::run)) {
        run();
    } else if (event.ActionCommand.equalsAscii(controls::close)) {
        windowClosing({});
    } else if (event.ActionCommand.equalsAscii(controls::help)) {
        help();
    } else {
        pick(DialogView::fieldOfPicker(event.ActionCommand));
    }
}

void AnalysisDialog::itemStateChanged(const css::awt::ItemEvent&) {
    m_View.clearMessages();
    prefill();
    countRows();
    arrange();
}

void AnalysisDialog::textChanged(const css::awt::TextEvent&) {
    if (countRows()) {
        arrange();
    }
}

/// Rows may have been filtered on the sheet while the dialog stood beside it.
void AnalysisDialog::windowActivated(const css::lang::EventObject&) {
    if (m_Open && !m_Run && countRows()) {
        arrange();
    }
}

void AnalysisDialog::windowClosing(const css::lang::EventObject&) {
    if (m_Run) {
        m_Run->cancel();
    } else {
        close();
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
    settings.secondRange = takesTwoRanges(settings.method) ? m_View.text(Field::Second) : std::string();
    settings.outputCell = m_View.checked(controls::cell) ? m_View.text(Field::Output) : std::string();
    settings.overWrite = m_View.checked(controls::overwrite);
    settings.newSheetName = m_Texts.sheets[static_cast<std::size_t>(settings.method)];
    settings.visibleRowsOnly = m_Hidden.hidden > 0 && m_View.checked(controls::visibleRows);
    settings.omitMissing = m_Missing.missing > 0 && m_View.checked(controls::missing);
    return settings;
}

void AnalysisDialog::run() {
    m_View.clearMessages();
    if (m_View.checked(controls::cell) && m_View.text(Field::Output).empty()) {
        showError(Error(tbvNPBadOutputRange));
        return;
    }
    if (countHidden()) {
        m_View.setMessage(Field::None, m_Texts.rowsChanged);
        arrange();
        return;
    }
    m_State.running = true;
    arrange();
    m_Progress = query<css::task::XStatusIndicatorFactory>(m_Frame)->createStatusIndicator();
    constexpr sal_Int32 fullProgress = 1000;
    m_Progress->start(fromUtf8(m_Texts.running), fullProgress);
    css::frame::Desktop::create(m_Context)->addTerminateListener(this);
    const rtl::Reference<AnalysisDialog> self(this);
    m_Run = std::make_unique<BackgroundRun>(m_Context, document(), settings(), m_Progress,
                                            [self](const Outcome& outcome) { self->finished(outcome); });
}

void AnalysisDialog::finished(const Outcome& outcome) {
    const rtl::Reference<AnalysisDialog> whileWorking(this);
    m_Run.reset();
    css::frame::Desktop::create(m_Context)->removeTerminateListener(this);
    m_Progress->end();
    if (!m_Open) {
        return;
    }
    m_State.running = false;
    if (outcome.cancelled) {
        m_View.setMessage(Field::None, m_Texts.cancelled);
        arrange();
    } else if (outcome.error) {
        showError(*outcome.error);
    } else if (outcome.refusal) {
        showRefusal(*outcome.refusal);
    } else {
        close();
    }
}

// A run that is under way places its report or is cancelled first.
void AnalysisDialog::queryTermination(const css::lang::EventObject&) {
    if (m_Run) {
        m_Run->cancel();
        throw css::frame::TerminationVetoException("A test is running",
                                                   static_cast<css::awt::XActionListener*>(this));
    }
}

void AnalysisDialog::disposing(const css::lang::EventObject& source) {
    if (source.Source == m_Frame) {
        close();
    }
}

}  // namespace TBVNonPara::calc
