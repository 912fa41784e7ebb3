#pragma once

#include <com/sun/star/frame/XFrame.hpp>
#include <com/sun/star/frame/XTerminateListener.hpp>
#include <com/sun/star/sheet/XRangeSelectionListener.hpp>
#include <cppuhelper/implbase8.hxx>
#include <memory>
#include <rtl/ref.hxx>
#include <vector>

#include "adapters/calc/background_run.hpp"
#include "adapters/calc/dialog_view.hpp"
#include "adapters/calc/group_ticks.hpp"
#include "adapters/calc/selection.hpp"
#include "adapters/calc/user_table.hpp"

namespace TBVNonPara::calc {

/// The dialog of one spreadsheet window. It stays open beside the sheet until a test has run or it is closed.
class AnalysisDialog
    : public cppu::WeakImplHelper8<css::awt::XActionListener, css::awt::XItemListener,
                                   css::awt::XTextListener, css::awt::XMouseListener, css::awt::XKeyListener,
                                   css::awt::XTopWindowListener, css::sheet::XRangeSelectionListener,
                                   css::frame::XTerminateListener> {
 public:
    /// Opens the dialog of a window, or brings the one that is open to the front. What is selected is filled
    /// in.
    static void openFor(const Context& context, const Reference<css::frame::XFrame>& frame);

    AnalysisDialog(const Context& context, const Reference<css::frame::XFrame>& frame);

    void SAL_CALL actionPerformed(const css::awt::ActionEvent& event) override;
    void SAL_CALL itemStateChanged(const css::awt::ItemEvent& event) override;

    void SAL_CALL textChanged(const css::awt::TextEvent& event) override;

    void SAL_CALL mousePressed(const css::awt::MouseEvent& event) override;
    void SAL_CALL mouseReleased(const css::awt::MouseEvent&) override {}
    void SAL_CALL mouseEntered(const css::awt::MouseEvent&) override {}
    void SAL_CALL mouseExited(const css::awt::MouseEvent&) override {}
    void SAL_CALL keyPressed(const css::awt::KeyEvent& event) override;
    void SAL_CALL keyReleased(const css::awt::KeyEvent&) override {}

    void SAL_CALL windowOpened(const css::lang::EventObject&) override {}
    void SAL_CALL windowClosing(const css::lang::EventObject&) override;
    void SAL_CALL windowClosed(const css::lang::EventObject&) override {}
    void SAL_CALL windowMinimized(const css::lang::EventObject&) override {}
    void SAL_CALL windowNormalized(const css::lang::EventObject&) override {}
    void SAL_CALL windowActivated(const css::lang::EventObject&) override;
    void SAL_CALL windowDeactivated(const css::lang::EventObject&) override {}

    void SAL_CALL done(const css::sheet::RangeSelectionEvent& event) override;
    void SAL_CALL aborted(const css::sheet::RangeSelectionEvent& event) override;

    void SAL_CALL queryTermination(const css::lang::EventObject&) override;
    void SAL_CALL notifyTermination(const css::lang::EventObject&) override {}

    void SAL_CALL disposing(const css::lang::EventObject& source) override;

 private:
    /// The texts of the fields of the data.
    using DataTexts = std::array<std::string, dataFields.size()>;

    void open();
    /// Comes to the front, with what is selected by now.
    void showAgain();
    void close();
    void showSettings();
    void rememberSettings() const;
    void prefill();
    [[nodiscard]] DataTexts dataTexts() const;
    [[nodiscard]] DataTexts suggested(const SheetAreas& selection) const;
    /// Counts the hidden rows of the ranges anew; whether they are others than before.
    bool countHidden();
    /// Counts the hidden rows and the missing values anew; whether the boxes about them say something else.
    bool countRows();
    void arrange();
    void labelFields();
    /// Whether the table is taken to be in long form.
    [[nodiscard]] bool isLong() const;
    /// Reads the groups' names and what is missing; whether the dialog shows something else now.
    bool readTable();
    /// Reads what the samples are called; whether the alternatives say something else now.
    bool readNames();
    void tick();
    void moveGroup(int by);
    void showGroups(std::int32_t selected);
    /// Says what is wrong with a table in long form before it is read; whether something is.
    bool refuseTable();
    [[nodiscard]] std::string faultOf(Field field) const;
    void help();
    void pick(Field field);
    void endPicking(const OUString& range);
    void run();
    void finished(const Outcome& outcome);
    void showError(const Error& error);
    void showWhatIsMissing(const Outcome& outcome);
    void showRefusal(const reshaping::Refusal& refusal);
    void showMessage(Field field, const std::string& words);
    [[nodiscard]] Field fieldOf(const Error& error) const;
    [[nodiscard]] Field fieldOf(const reshaping::Refusal& refusal) const;
    [[nodiscard]] Field fieldHolding(const std::string& description) const;
    [[nodiscard]] AnalysisSettings settings() const;
    [[nodiscard]] TBVNPMethod method() const;
    [[nodiscard]] DocumentRef document() const;

    Context m_Context;
    Reference<css::frame::XFrame> m_Frame;
    std::string m_Language;
    const DialogTexts& m_Texts;
    DialogView m_View;
    DialogState m_State;
    Field m_Picking = Field::None;
    DataTexts m_Prefilled;
    GroupTicks m_Groups;
    std::unique_ptr<BackgroundRun> m_Run;
    Reference<css::task::XStatusIndicator> m_Progress;
    HiddenCount m_Hidden;
    reshaping::Account m_Missing;
    SampleNames m_Names;
    bool m_Open = false;
};

}  // namespace TBVNonPara::calc
