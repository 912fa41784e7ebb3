#include "tbvnonpara/request/reading.hpp"

#include "tbvnonpara/companion/own/array_utility.hpp"
#include "tbvnonpara/request/labels.hpp"
#include "tests/request/request_desk.hpp"

namespace TBVNonPara {
namespace {

const ValueGrid columns = {
    {"a", blank, "b", "c"}, {1.0, blank, 3.0, 6.0}, {2.0, blank, 4.0, blank}, {blank, blank, 5.0, blank}};

ValueGrid read(const std::string& address, bool headers) {
    const RequestDesk desk(columns);
    EngineInput input = readInputs(*desk.host, *createArrayUtility(), desk.host->GetRange(address), headers);
    auto* const numbers = std::get_if<NumberColumns>(&input);
    return numbers != nullptr ? EngineData(std::move(*numbers)).cells() : std::get<ValueGrid>(input);
}

TEST(Reading, AreasOfUnequalHeightStandSideBySideWithoutTheirLabels) {
    EXPECT_EQ(read("Data!A1:A3,Data!C1:C4,Data!D1:D2", true),
              (ValueGrid{{1.0, 3.0, 6.0}, {2.0, 4.0, blank}, {blank, 5.0, blank}}));
}

TEST(Reading, WithoutHeadersARangeIsReadAsItIs) {
    EXPECT_EQ(read("Data!A1:A3", false), (ValueGrid{{"a"}, {1.0}, {2.0}}));
    EXPECT_EQ(read("Data!C1:D2", false), (ValueGrid{{"b", "c"}, {3.0, 6.0}}));
    EXPECT_EQ(read("Data!C2", false), (ValueGrid{{3.0}}));
}

TEST(Reading, WithHeadersTheFirstRowIsLeftOut) {
    EXPECT_EQ(read("Data!C1:D3", true), (ValueGrid{{3.0, 6.0}, {4.0, blank}}));
}

TEST(Naming, WithoutHeadersAVariableIsNamedByItsColumn) {
    const RequestDesk desk;
    EXPECT_EQ(columnName(desk.host->GetRange("Data!B2")), "Column B");
    EXPECT_EQ(columnName(desk.host->GetRange("Data!AA2")), "Column AA");
    EXPECT_EQ(columnName(desk.host->GetRange("Data!XFD9")), "Column XFD");
    EXPECT_EQ(label(desk.host->GetRange("Data!AB7:AC9"), false), "Column AB");
}

TEST(Naming, WithHeadersAVariableIsNamedByTheTextOfItsFirstCell) {
    const RequestDesk desk({{2019.0, "After", 0.1, true}});
    EXPECT_EQ(groupLabels(desk.host->GetRange("Data!A1:D4"), true), (Labels{"2019", "After", "0.1", "True"}));
}

TEST(Naming, GroupsAreTheColumnsOfEveryArea) {
    const RequestDesk desk(columns);
    const RangeRef range = desk.host->GetRange("Data!A1:A3,Data!C1:D2");
    EXPECT_EQ(groupLabels(range, true), (Labels{"a", "b", "c"}));
    EXPECT_EQ(groupLabels(range, false), (Labels{"Column A", "Column C", "Column D"}));
}

TEST(Naming, ARangeIsDescribedByItsSheetAndAddress) {
    const RequestDesk desk;
    EXPECT_EQ(rangeText(desk.host->GetRange("Data!A1:A21")), "Data!$A$1:$A$21");
    EXPECT_EQ(rangeText(desk.host->GetRange("Data!A1:A3,Data!C1:D2")), "Data!$A$1:$A$3,$C$1:$D$2");
}

}  // namespace
}  // namespace TBVNonPara
