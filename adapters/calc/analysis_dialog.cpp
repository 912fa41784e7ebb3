#include "adapters/calc/analysis_dialog.hpp"

#include <algorithm>
#include <array>
#include <com/sun/star/awt/XWindowPeer.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/TerminationVetoException.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/task/XStatusIndicatorFactory.hpp>

#include "adapters/calc/office_language.hpp"

namespace TBVNonPara::calc {

namespace {

/// The dialogs that are open: one for a window at most.
std::vector<AnalysisDialog*>& openDialogs() {
    static std::vector<AnalysisDialog*> dialogs;
    return dialogs;
}

}  // namespace

void AnalysisDialog::openFor(const Context& context, const Reference<css::frame::XFrame>& frame) {
    for (AnalysisDialog* dialog : openDialogs()) {
        if (dialog->m_Frame == frame) {
            dialog->showAgain();
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
    return query<css::sheet::XSpreadsheetDocument>(given(m_Frame->getController())->getModel());
}

TBVNPMethod AnalysisDialog::method() const {
    return static_cast<TBVNPMethod>(m_View.selected(controls::test));
}

void AnalysisDialog::open() {
    m_View.fill(controls::test, m_Texts.tests);
    m_View.fill(controls::adjustment, m_Texts.adjustments);
    showSettings();
    prefill();
    countRows();
    const auto parent = query<css::awt::XWindowPeer>(m_Frame->getContainerWindow());
    m_View.create(parent);
    arrange();
    m_View.open(parent);
    m_View.listen(this, this, this, this, this, this);
    m_Frame->addEventListener(static_cast<css::awt::XActionListener*>(this));
    openDialogs().push_back(this);
    m_Open = true;
    m_View.focus(Field::First);
}

void AnalysisDialog::showAgain() {
    if (!m_Run && m_Picking == Field::None) {
        prefill();
        countRows();
        arrange();
    }
    m_View.bringToFront();
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

bool AnalysisDialog::countHidden() {
    const AnalysisSettings asked = settings();
    const HiddenCount count = countHiddenRows(
        document(), std::array{asked.firstRange, asked.secondRange, asked.groupRange, asked.blockRange});
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
    const bool tableChanged = readTable();
    return readNames() || tableChanged || hiddenChanged;
}

void AnalysisDialog::labelFields() {
    const TBVNPMethod test = method();
    const bool several = takesGroups(test) && !isLong();
    m_View.setLabel(Field::First,
                    isLong()              ? m_Texts.valueRange
                    : several             ? m_Texts.groupRanges
                    : test == tbvNPWWRuns ? m_Texts.dataRange
                                          : m_Texts.firstRange,
                    several ? m_Texts.severalAreas : std::string_view());
    m_View.setLabel(Field::Second, test == tbvNPSign ? m_Texts.groupingRange : m_Texts.secondRange, {});
    m_View.setGroupsLabel(takesGroups(test) ? m_Texts.groupTicks : m_Texts.twoGroupTicks);
}

void AnalysisDialog::arrange() {
    const TBVNPMethod test = method();
    const std::int32_t alternative = m_View.selected(controls::alternative);
    const bool pairs = isLong() || !m_View.text(Field::Second).empty();
    m_View.fillWith(controls::alternative, alternativesOf(test, pairs, m_Names, m_Language));
    m_View.select(controls::alternative, alternative);
    labelFields();
    m_State.alternatives = !takesGroups(test);
    m_State.longTableOffered = takesLongTable(test);
    m_State.longTable = isLong();
    m_State.blocks = isLong() && takesBlocks(test);
    m_State.secondRange = takesTwoRanges(test) && !isLong();
    m_State.hiddenRows = m_Hidden.hidden > 0;
    m_State.missing = m_Missing.missing + m_Missing.unnamed > 0;
    m_State.ignoreTies = test == tbvNPWilcoxon;
    m_State.details = m_View.checked(controls::details);
    m_State.comparisons = takesGroups(test);
    m_State.outputCell = m_View.checked(controls::cell);
    const LiveObstacle obstacle = obstacleToLive(settings());
    m_State.live = obstacle == LiveObstacle::None;
    m_View.setBoxLabel(controls::live, liveLabel(m_Texts, obstacle));
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
    } else if (event.ActionCommand.equalsAscii(controls::moveUp)) {
        moveGroup(-1);
    } else if (event.ActionCommand.equalsAscii(controls::moveDown)) {
        moveGroup(1);
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

void AnalysisDialog::run() {
    m_View.clearMessages();
    if (m_View.checked(controls::cell) && m_View.text(Field::Output).empty()) {
        showError(Error(tbvNPBadOutputRange));
        return;
    }
    if (m_State.details && !levelIn(m_View.text(Field::Confidence))) {
        showMessage(Field::Confidence, std::string(m_Texts.chooseConfidence));
        return;
    }
    if (isLong() && refuseTable()) {
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
    AnalysisSettings wanted = settings();
    wanted.liveFigures = wanted.liveFigures && m_State.live;
    m_Run = std::make_unique<BackgroundRun>(m_Context, document(), std::move(wanted),
                                            RunProgress{m_Progress, fromUtf8(m_Texts.countingDetails)},
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
    } else if (!outcome.isWhole()) {
        showWhatIsMissing(outcome);
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
