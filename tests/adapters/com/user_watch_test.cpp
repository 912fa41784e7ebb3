#include "adapters/com/user_watch.hpp"

#include <gtest/gtest.h>

#include "tests/adapters/com/peer_object.hpp"
#include "tests/support/raised.hpp"

namespace TBVNonPara::com {

namespace {

using std::chrono::milliseconds;

/// An application with a status bar, a clock that is set and a key that is held or not.
struct WatchingUser {
    std::vector<CellValue> shown;
    CellValue before = false;
    bool holdsEscape = false;
    UserWatch::Clock::time_point now;

    [[nodiscard]] Peer::PeerRef application() {
        return Peer::makePeer({Peer::plain(
            L"StatusBar", [this] { return toVariant(before, Texts::AsHeld); },
            [this](const Peer::Arguments& a) { shown.push_back(fromVariant(a[0])); })});
    }
    [[nodiscard]] UserWatch watch(const Peer::PeerRef& application) {
        return UserWatch([application] { return application.as<IDispatch>(); },
                         [this] { return holdsEscape; }, [this] { return now; });
    }
};

std::string counting(const std::string& share) {
    return "Counting for the details: " + share + " % (Esc ends it)";
}

TEST(WatchOfAUser, TellsHowFarACountIsAFewTimesASecond) {
    WatchingUser user;
    {
        UserWatch watch = user.watch(user.application());
        watch.tell(0.014);
        user.now += milliseconds(199);
        watch.tell(0.3);
        user.now += milliseconds(1);
        watch.tell(0.996);
        EXPECT_EQ(user.shown, (std::vector<CellValue>{Text(counting("1")), Text(counting("100"))}));
    }
    ASSERT_EQ(user.shown.size(), 3U);
    EXPECT_EQ(user.shown.back(), CellValue(false)) << "the application has its status bar back";
}

TEST(WatchOfAUser, GivesBackTheTextOfAMacro) {
    WatchingUser user;
    user.before = Text("Step 2 of 7");
    {
        UserWatch watch = user.watch(user.application());
        watch.tell(0);
    }
    EXPECT_EQ(user.shown, (std::vector<CellValue>{Text(counting("0")), Text("Step 2 of 7")}));
}

TEST(WatchOfAUser, WithoutALongCountTouchesNothing) {
    bool found = false;
    {
        const UserWatch watch([&] {
            found = true;
            return ComPtr<IDispatch>();
        });
    }
    EXPECT_FALSE(found);
}

TEST(WatchOfAUser, EscEndsTheCount) {
    WatchingUser user;
    {
        UserWatch watch = user.watch(user.application());
        watch.tell(0.5);
        user.holdsEscape = true;
        const Support::Raised raised = Support::raisedBy([&] { watch.tell(0.5); });
        EXPECT_EQ(raised.number, 18);
        EXPECT_EQ(raised.description, "User interrupt occurred");
    }
    EXPECT_EQ(user.shown.back(), CellValue(false));
}

TEST(WatchOfAUser, DoesWithoutAStatusBarAndWithoutAnApplication) {
    WatchingUser user;
    UserWatch barless = user.watch(Peer::makePeer({}));
    EXPECT_NO_THROW(barless.tell(0.5));
    UserWatch alone([]() -> ComPtr<IDispatch> { throw Error(429); }, [] { return false; });
    EXPECT_NO_THROW(alone.tell(0.5));
    EXPECT_TRUE(user.shown.empty());
}

TEST(WatchOfAUser, OfAnApplicationThatIsBusyGoesOn) {
    WatchingUser user;
    int refused = 0;
    const Peer::PeerRef busy = Peer::makePeer({Peer::plain(
        L"StatusBar", [] { return Variant(false); },
        [&](const Peer::Arguments&) {
            refused += 1;
            throw Error(1004, "busy");
        })});
    {
        UserWatch watch = user.watch(busy);
        EXPECT_NO_THROW(watch.tell(0.5));
    }
    EXPECT_EQ(refused, 2);
}

TEST(WatchOfAUser, EscInNoWindowOfThisProcessIsNotForUs) {
    EXPECT_FALSE(EscapeKey().isHeld());
}

}  // namespace

}  // namespace TBVNonPara::com
