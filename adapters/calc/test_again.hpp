#pragma once

#include <com/sun/star/frame/XFrame.hpp>
#include <com/sun/star/frame/XTerminateListener.hpp>
#include <cppuhelper/implbase1.hxx>
#include <memory>

#include "adapters/calc/background_run.hpp"
#include "adapters/calc/dialog_texts.hpp"
#include "adapters/calc/kept_requests.hpp"

namespace TBVNonPara::calc {

/// The test of the report that the cursor stands in, once more: the report takes the place of the one before
/// it.
class TestAgain : public cppu::WeakImplHelper1<css::frame::XTerminateListener> {
 public:
    /// Runs it, or asks or says what keeps it from that. Where one runs in this window already, that is
    /// cancelled.
    static void in(const Context& context, const Reference<css::frame::XFrame>& frame);

    TestAgain(const Context& context, const Reference<css::frame::XFrame>& frame);

    void SAL_CALL queryTermination(const css::lang::EventObject&) override;
    void SAL_CALL notifyTermination(const css::lang::EventObject&) override {}
    void SAL_CALL disposing(const css::lang::EventObject& source) override;

 private:
    void begin();
    void run(const KeptRequest& request);
    void finished(const Outcome& outcome);
    [[nodiscard]] std::string wordsOn(const Outcome& outcome) const;
    [[nodiscard]] std::string wordsOn(const Error& error) const;

    Context m_Context;
    Reference<css::frame::XFrame> m_Frame;
    std::string m_Language;
    const DialogTexts& m_Texts;
    AnalysisSettings m_Settings;
    std::unique_ptr<BackgroundRun> m_Run;
    Reference<css::task::XStatusIndicator> m_Progress;
    bool m_IsOpen = true;
};

}  // namespace TBVNonPara::calc
