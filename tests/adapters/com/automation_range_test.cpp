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

}  // namespace

}  // namespace TBVNonPara::com
