#include "adapters/calc/test_again.hpp"

#include <algorithm>
#include <array>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/TerminationVetoException.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/task/XStatusIndicatorFactory.hpp>
#include <rtl/ref.hxx>

#include "adapters/calc/message_box.hpp"
#include "adapters/calc/office_language.hpp"
#include "adapters/calc/outcome_words.hpp"
#include "adapters/calc/refusal_words.hpp"
#include "adapters/calc/selection.hpp"

namespace TBVNonPara::calc {

namespace {

/// Those that run: one in a window at most.
std::vector<TestAgain*>& testsUnderWay() {
    static std::vector<TestAgain*> tests;
    return tests;
}

}  // namespace

void TestAgain::in(const Context& context, const Reference<css::frame::XFrame>& frame) {
    for (const TestAgain* test : testsUnderWay()) {
        if (test->m_Frame == frame) {
            test->m_Run->cancel();
            return;
        }
    }
    const rtl::Reference<TestAgain> test(new TestAgain(context, frame));
    test->begin();
}

TestAgain::TestAgain(const Context& context, const Reference<css::frame::XFrame>& frame)
    : m_Context(context),
      m_Frame(frame),
      m_Language(languageOfTheOffice(context)),
      m_Texts(dialogTexts(m_Language)) {
}

void TestAgain::begin() {
    // The window may have been closed since the entry was chosen.
    const Reference<css::frame::XController> controller = m_Frame->getController();
    const auto document = controller.is()
                              ? queryIfAny<css::sheet::XSpreadsheetDocument>(controller->getModel())
                              : DocumentRef();
    if (!document.is()) {
        return;
    }
    const std::optional<SheetAreas> cursor = cursorOf(document);
    const auto request = cursor ? requestAt(document, cursor->sheet, cursor->areas.front()) : std::nullopt;
    if (!request) {
        tell(m_Context, m_Frame, m_Texts.noReportHere);
    } else if (request->rangesLost) {
        warn(m_Context, m_Frame, m_Texts.rangesLost);
    } else if (!request->changed || ask(m_Context, m_Frame, m_Texts.reportChanged)) {
        run(*request);
    }
}

void TestAgain::run(const KeptRequest& request) {
    constexpr sal_Int32 fullProgress = 1000;
    m_Settings = request.settings;
    m_Progress = query<css::task::XStatusIndicatorFactory>(m_Frame)->createStatusIndicator();
    m_Progress->start(fromUtf8(m_Texts.running), fullProgress);
    css::frame::Desktop::create(m_Context)->addTerminateListener(this);
    m_Frame->addEventListener(this);
    testsUnderWay().push_back(this);
    const rtl::Reference<TestAgain> self(this);
    m_Run = std::make_unique<BackgroundRun>(m_Context, request.report.document, m_Settings,
                                            RunProgress{m_Progress, fromUtf8(m_Texts.countingDetails)},
                                            [self](const Outcome& outcome) { self->finished(outcome); });
}

void TestAgain::finished(const Outcome& outcome) {
    m_Run.reset();
    std::erase(testsUnderWay(), this);
    css::frame::Desktop::create(m_Context)->removeTerminateListener(this);
    m_Progress->end();
    if (!m_IsOpen) {
        return;
    }
    m_Frame->removeEventListener(this);
    if (const std::string words = wordsOn(outcome); !words.empty()) {
        warn(m_Context, m_Frame, words);
    }
}

std::string TestAgain::wordsOn(const Outcome& outcome) const {
    if (outcome.cancelled) {
        return std::string(m_Texts.cancelled);
    }
    if (outcome.error) {
        return wordsOn(*outcome.error);
    }
    if (outcome.refusal) {
        return filledIn(m_Texts.notRepeated, std::array{refusalWords(*outcome.refusal, m_Language)});
    }
    return wordsOnWhatIsMissing(outcome, m_Texts);
}

std::string TestAgain::wordsOn(const Error& error) const {
    if (error.number() == tbvNPOutputOccupied) {
        const std::string& description = error.description();
        return filledIn(m_Texts.reportGrows, std::array{description.substr(0, description.find(' '))});
    }
    RequestNames names;
    names.y = m_Settings.firstRange;
    names.x = m_Settings.secondRange;
    return filledIn(m_Texts.notRepeated, std::array{plainWords(error, m_Settings.method, names, m_Language)});
}

// A run that is under way places its report or is cancelled first.
void TestAgain::queryTermination(const css::lang::EventObject&) {
    if (m_Run) {
        m_Run->cancel();
        throw css::frame::TerminationVetoException("A test is running",
                                                   static_cast<css::frame::XTerminateListener*>(this));
    }
}

void TestAgain::disposing(const css::lang::EventObject& source) {
    if (source.Source == m_Frame) {
        m_IsOpen = false;
        if (m_Run) {
            m_Run->cancel();
        }
    }
}

}  // namespace TBVNonPara::calc
