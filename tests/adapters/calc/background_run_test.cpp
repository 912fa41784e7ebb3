#include "adapters/calc/background_run.hpp"

#include <com/sun/star/document/XUndoManagerSupplier.hpp>
#include <cppuhelper/implbase1.hxx>
#include <future>
#include <gtest/gtest.h>

#include "adapters/calc/writing.hpp"
#include "tests/adapters/calc/office_document.hpp"

namespace TBVNonPara::Scenarios {

namespace {

using namespace TBVNonPara::calc;

/// Calls the test back with every value that the bar is set to.
class WatchedBar : public cppu::WeakImplHelper1<css::task::XStatusIndicator> {
 public:
    WatchedBar(std::function<void(sal_Int32)> told, std::vector<std::string>& texts)
        : m_Told(std::move(told)), m_Texts(texts) {}
    void SAL_CALL start(const OUString&, sal_Int32) override {}
    void SAL_CALL end() override {}
    void SAL_CALL reset() override {}
    void SAL_CALL setText(const OUString& text) override { m_Texts.push_back(toUtf8(text)); }
    void SAL_CALL setValue(sal_Int32 value) override { m_Told(value); }

 private:
    std::function<void(sal_Int32)> m_Told;
    std::vector<std::string>& m_Texts;
};

/// Calls the test back when the document is about to be changed.
class FirstChange : public cppu::WeakImplHelper1<css::document::XUndoManagerListener> {
 public:
    using Event = css::document::UndoManagerEvent;

    explicit FirstChange(std::function<void()> told) : m_Told(std::move(told)) {}
    void SAL_CALL undoActionAdded(const Event&) override {}
    void SAL_CALL actionUndone(const Event&) override {}
    void SAL_CALL actionRedone(const Event&) override {}
    void SAL_CALL allActionsCleared(const css::lang::EventObject&) override {}
    void SAL_CALL redoActionsCleared(const css::lang::EventObject&) override {}
    void SAL_CALL resetAll(const css::lang::EventObject&) override {}
    void SAL_CALL enteredContext(const Event&) override { m_Told(); }
    void SAL_CALL enteredHiddenContext(const Event&) override {}
    void SAL_CALL leftContext(const Event&) override {}
    void SAL_CALL leftHiddenContext(const Event&) override {}
    void SAL_CALL cancelledContext(const Event&) override {}
    void SAL_CALL disposing(const css::lang::EventObject&) override {}

 private:
    std::function<void()> m_Told;
};

/// 600 pairs with ties, whose signed ranks take a while to count, and a run on them with details.
class RunWithDetails : public testing::Test {
 protected:
    static constexpr std::int32_t rows = 600;

    void SetUp() override {
        ValueGrid cells(rows, 2);
        for (Index row = 1; row <= rows; ++row) {
            cells(row, 1) = static_cast<double>(row % 97);
            cells(row, 2) = static_cast<double>(row % 89 + 3);
        }
        writeCells(open.document(), open.sheet(), {0, 0, 1, rows - 1}, cells);
        settings.method = tbvNPWilcoxon;
        settings.headers = false;
        settings.firstRange = "A1:A600";
        settings.secondRange = "B1:B600";
        settings.details.wanted = true;
    }

    Outcome run() {
        std::promise<Outcome> outcome;
        BackgroundRun own(officeContext(), open.document(), settings,
                          {new WatchedBar([this](sal_Int32 value) { told(value); }, texts), "counting"},
                          [&](const Outcome& found) { outcome.set_value(found); });
        started.set_value(&own);
        return outcome.get_future().get();
    }

    void cancel() { running.get()->cancel(); }

    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (const OUString& name : open.document()->getSheets()->getElementNames()) {
            all.push_back(toUtf8(name));
        }
        return all;
    }

    OpenDocument open;
    AnalysisSettings settings;
    std::function<void(sal_Int32)> told = [](sal_Int32) {};
    std::vector<std::string> texts;
    std::promise<BackgroundRun*> started;
    std::shared_future<BackgroundRun*> running = started.get_future().share();
};

TEST_F(RunWithDetails, PlacesBoth) {
    const Outcome outcome = run();
    EXPECT_FALSE(outcome.error);
    EXPECT_EQ(outcome.withoutDetails, "");
    ASSERT_EQ(names().size(), 3U);
    EXPECT_EQ(names().back(), "Details");
    EXPECT_EQ(texts, std::vector<std::string>{"counting"}) << "once, when the test is computed";
}

TEST_F(RunWithDetails, PlacesAPictureWithoutThem) {
    settings.details = {};
    settings.details.picture = true;
    const Outcome outcome = run();
    EXPECT_TRUE(outcome.isWhole());
    EXPECT_EQ(names().back(), "Details");
    EXPECT_EQ(texts, std::vector<std::string>{}) << "nothing is counted";
}

TEST_F(RunWithDetails, ThatIsCancelledWhileTheyAreCountedPlacesTheReport) {
    settings.details.picture = true;
    sal_Int32 before = -1;
    bool counting = false;
    told = [&](sal_Int32 value) {
        // The bar only ever advances as long as the test is computed, and begins anew with a count.
        counting = counting || value < before;
        before = value;
        if (counting) {
            cancel();
        }
    };
    const Outcome outcome = run();
    ASSERT_TRUE(counting);
    EXPECT_FALSE(outcome.error);
    EXPECT_FALSE(outcome.cancelled);
    EXPECT_TRUE(outcome.detailsCancelled);
    EXPECT_NE(outcome.withoutPicture, "");
    EXPECT_EQ(names().size(), 2U);
}

TEST_F(RunWithDetails, ThatIsCancelledWhileTheReportIsPlacedPlacesIt) {
    const auto manager = query<css::document::XUndoManagerSupplier>(open.document())->getUndoManager();
    const Reference<css::document::XUndoManagerListener> listener(new FirstChange([this] { cancel(); }));
    manager->addUndoManagerListener(listener);
    const Outcome outcome = run();
    manager->removeUndoManagerListener(listener);
    EXPECT_FALSE(outcome.error);
    EXPECT_TRUE(outcome.detailsCancelled);
    EXPECT_EQ(names().size(), 2U);
    ASSERT_EQ(manager->getAllUndoActionTitles().getLength(), 2);  // the data are the other
    manager->undo();
    EXPECT_EQ(names().size(), 1U);
}

TEST_F(RunWithDetails, ThatIsCancelledWhileTheTestIsComputedPlacesNothing) {
    told = [this](sal_Int32) { cancel(); };
    const Outcome outcome = run();
    EXPECT_TRUE(outcome.cancelled);
    EXPECT_FALSE(outcome.detailsCancelled);
    EXPECT_EQ(names().size(), 1U);
}

}  // namespace

}  // namespace TBVNonPara::Scenarios
