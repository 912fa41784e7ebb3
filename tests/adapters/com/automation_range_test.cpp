#include "adapters/com/automation_range.hpp"

#include <gtest/gtest.h>

#include "tests/adapters/com/peer_object.hpp"
#include "tests/support/raised.hpp"

namespace TBVNonPara::com {

namespace {

Variant amount(std::int64_t tenThousandths) {
    VARIANT raw{};
    raw.vt = VT_CY;
    raw.cyVal.int64 = tenThousandths;
    Variant value;
    *value.out() = raw;
    return value;
}

/// A column of three cells as automation gives it, with an amount in the last.
Variant columnWithAmount() {
    Variant column = toVariant(ValueGrid{{1.0}, {"a"}, {0.0}}, Texts::AsHeld);
    LONG last[] = {3, 1};
    VARIANT raw = amount(10000).get();
    SafeArrayPutElement(column.get().parray, last, &raw);
    return column;
}

Variant columnOfNumbers() {
    return toVariant(ValueGrid{{1.0}, {"a"}, {1.00004}}, Texts::AsHeld);
}

RangeRef rangeOf(std::vector<Peer::Member> members) {
    const Peer::PeerRef peer = Peer::makePeer(std::move(members));
    return toRange(HostObject(peer.as<IDispatch>(), Kind::Range, std::make_shared<ObjectModel>()));
}

TEST(ValuesOfARange, ThatAreAmountsKeepAllTheirDigits) {
    const RangeRef range =
        rangeOf({Peer::plain(L"Value", columnWithAmount), Peer::plain(L"Value2", columnOfNumbers)});
    EXPECT_EQ(range->GetValue(), (ValueGrid{{1.0}, {"a"}, {1.00004}}));
}

TEST(ValuesOfARange, OneCellThatIsAnAmountKeepsAllItsDigits) {
    const RangeRef range = rangeOf({Peer::plain(L"Value", [] { return amount(10000); }),
                                    Peer::plain(L"Value2", [] { return Variant(1.00004); })});
    EXPECT_EQ(range->GetValue(), (ValueGrid{{1.00004}}));
}

TEST(ValuesOfARange, WithoutAmountsAreReadOnce) {
    const RangeRef range =
        rangeOf({Peer::plain(L"Value", columnOfNumbers),
                 Peer::plain(L"Value2", []() -> Variant { raise(RuntimeError::Overflow); })});
    EXPECT_EQ(range->GetValue()(3, 1), CellValue(1.00004));
}

TEST(ValuesOfARange, OfAnApplicationWithoutTheNumbersAreTheAmounts) {
    EXPECT_EQ(rangeOf({Peer::plain(L"Value", columnWithAmount)})->GetValue()(3, 1), CellValue(1.0));
}

TEST(ValuesOfARange, ThatTheApplicationRefusesToGiveAreNotRounded) {
    const RangeRef range = rangeOf({Peer::plain(L"Value", columnWithAmount),
                                    Peer::plain(L"Value2", []() -> Variant { throw Error(1004, "busy"); })});
    EXPECT_EQ(Support::raisedBy([&] { (void)range->GetValue(); }).number, 1004);
}

/// A worksheet that tells, when it is deleted, whether its application would have asked.
struct DeletedSheet {
    bool alerts = true;
    int deletions = 0;
    bool alertsAtDeletion = true;

    [[nodiscard]] WorksheetRef sheet(const Peer::PeerRef& application, std::int32_t refusal = 0) {
        const Peer::PeerRef peer = Peer::makePeer({
            Peer::plain(L"Application", [application] { return Peer::asValue(application); }),
            {L"Delete",
             [this, refusal](const Peer::Arguments&) {
                 deletions += 1;
                 alertsAtDeletion = alerts;
                 if (refusal != 0) {
                     throw Error(refusal, "protected");
                 }
                 return Variant();
             }},
        });
        return toWorksheet(
            HostObject(peer.as<IDispatch>(), Kind::Worksheet, std::make_shared<ObjectModel>()));
    }
    [[nodiscard]] Peer::PeerRef application() {
        return Peer::makePeer({Peer::plain(
            L"DisplayAlerts", [this] { return Variant(alerts); },
            [this](const Peer::Arguments& a) { alerts = a.truth(0); })});
    }
};

TEST(DeletingASheet, AsksNobody) {
    DeletedSheet deleted;
    deleted.sheet(deleted.application())->Delete();
    EXPECT_EQ(deleted.deletions, 1);
    EXPECT_FALSE(deleted.alertsAtDeletion);
    EXPECT_TRUE(deleted.alerts) << "they are back";
}

TEST(DeletingASheet, LeavesAlertsOffThatWereOff) {
    DeletedSheet deleted;
    deleted.alerts = false;
    deleted.sheet(deleted.application())->Delete();
    EXPECT_EQ(deleted.deletions, 1);
    EXPECT_FALSE(deleted.alerts);
}

TEST(DeletingASheet, ThatIsRefusedBringsTheAlertsBack) {
    DeletedSheet deleted;
    const WorksheetRef sheet = deleted.sheet(deleted.application(), 1004);
    EXPECT_EQ(Support::raisedBy([&] { sheet->Delete(); }).number, 1004);
    EXPECT_TRUE(deleted.alerts);
}

TEST(DeletingASheet, DoesWithoutAnApplicationThatHasAlerts) {
    DeletedSheet deleted;
    deleted.sheet(Peer::makePeer({}))->Delete();
    EXPECT_EQ(deleted.deletions, 1);
}

}  // namespace

}  // namespace TBVNonPara::com
