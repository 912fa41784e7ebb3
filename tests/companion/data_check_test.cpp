#include "tbvnonpara/companion/own/data_check.hpp"

#include <gtest/gtest.h>

#include "tbvnonpara/core/enumerations.hpp"
#include "tests/support/raised.hpp"
#include "tests/support/test_host.hpp"
#include "tests/support/watched_host.hpp"

namespace TBVNonPara {
namespace {

struct CheckCase {
    std::string name;
    ValueGrid cells;
    bool headers;
    std::int32_t number;
    std::string description;

    friend std::ostream& operator<<(std::ostream& out, const CheckCase& check) { return out << check.name; }
};

std::string caseName(const ::testing::TestParamInfo<CheckCase>& info) {
    return info.param.name;
}

/// The cells on a sheet "Data" from B2 on.
RangeRef dataRange(const ObjectRef<Application>& host, const ValueGrid& cells) {
    const RangeRef first = host->GetRange("Data!B2");
    RangeRef range = host->GetRange(first, first->GetCells(cells.rows(), cells.columns()));
    range->LetValue(cells);
    return range;
}

struct Checked {
    Support::Raised raised;
    Long rows;
    Long cells;
    Long blanks;
    bool flag = false;
};

Checked checkData(const ValueGrid& cells, bool headers, bool blanksAllowed) {
    const ObjectRef<Application> host = Support::testHost();
    const RangeRef range = dataRange(host, cells);
    Checked checked;
    checked.flag = blanksAllowed;
    checked.raised = Support::raisedBy([&] {
        createDataCheck()->CheckData(range, headers, checked.rows, checked.cells, checked.blanks,
                                     checked.flag);
    });
    return checked;
}

const CellValue blank = Empty();

// clang-format off
const CheckCase dataCases[] = {
    {"Numbers_Pass",                     {{1.0}, {-2.5}},              false, 0, ""},
    {"TextsThatReadAsNumbers_Pass",      {{"1"}, {" -2.5e3 "}},        false, 0, ""},
    {"AHeaderAndOneRow_Pass",            {{"Yield"}, {1.0}},           true,  0, ""},
    {"TheHeaderMayHoldAnything",         {{CellError::NotAvailable}, {1.0}}, true, 0, ""},
    {"ATextBelowTheHeader", {{"Yield"}, {1.0}, {"n/a"}}, true, tbvNPTextInData,
     "Data!B4 holds the text \"n/a\"; every cell below the header must be a number."},
    {"ATextWithoutHeaders", {{1.0}, {"n/a"}}, false, tbvNPTextInData,
     "Data!B3 holds the text \"n/a\"; every cell of the range must be a number."},
    {"AnEmptyText", {{1.0}, {""}}, false, tbvNPTextInData,
     "Data!B3 holds the text \"\"; every cell of the range must be a number."},
    {"ATruthValue", {{1.0}, {true}}, false, tbvNPBooleanInData,
     "Data!B3 holds True; every cell of the range must be a number."},
    {"AnErrorValue", {{1.0}, {CellError::DivisionByZero}}, false, tbvNPErrorInData,
     "Data!B3 holds the error #DIV/0!; every cell of the range must be a number."},
    {"ABlank", {{1.0}, {blank}, {2.0}}, false, tbvNPBlankInData,
     "Data!B3 is blank; every cell of the range must be a number."},
    {"TheFirstOffendingCellIsNamed_ColumnByColumn", {{1.0, "late"}, {1.0, 1.0}, {"first", 1.0}}, false,
     tbvNPTextInData, "Data!B4 holds the text \"first\"; every cell of the range must be a number."},
    {"ABlankAboveATextIsTheFirst", {{1.0}, {blank}, {"x"}}, false, tbvNPBlankInData,
     "Data!B3 is blank; every cell of the range must be a number."},
    {"OnlyAHeader", {{"Yield"}}, true, tbvNPNoData,
     "Data!B2 holds no data below its header; choose a range with at least one value."},
    {"OnlyBlanksBelowTheHeader", {{"Yield"}, {blank}, {blank}}, true, tbvNPNoData,
     "Data!B2:B4 holds no data below its header; choose a range with at least one value."},
    {"OnlyBlanks", {{blank, blank}}, false, tbvNPNoData,
     "Data!B2:C2 holds no data; choose a range with at least one value."},
    {"ALongText_IsShownByItsBeginning", {{1.0}, {std::string(59, 'x') + "\xC3\xA9" "end"}}, false,
     tbvNPTextInData,
     "Data!B3 holds the text \"" + std::string(59, 'x') +
     "...\"; every cell of the range must be a number."},
};
// clang-format on

class CheckData : public ::testing::TestWithParam<CheckCase> {};

TEST_P(CheckData, WithoutBlanksAllowed) {
    const Checked checked = checkData(GetParam().cells, GetParam().headers, false);
    EXPECT_EQ(checked.raised.number, GetParam().number);
    EXPECT_EQ(checked.raised.description, GetParam().description);
}

TEST_P(CheckData, TheSecondRangeIsCheckedAlike) {
    const ObjectRef<Application> host = Support::testHost();
    const RangeRef range = dataRange(host, GetParam().cells);
    Long first;
    Long second;
    Long third;
    const Support::Raised raised = Support::raisedBy(
        [&] { createDataCheck()->CheckXData(range, GetParam().headers, first, second, third); });
    EXPECT_EQ(raised.number, GetParam().number);
    EXPECT_EQ(raised.description, GetParam().description);
}

INSTANTIATE_TEST_SUITE_P(DataCheck, CheckData, ::testing::ValuesIn(dataCases), caseName);

TEST(CheckDataFlag, TrueAllowsBlanksAndSaysWhetherAnyWereFound) {
    const Checked withBlanks = checkData({{"Yield"}, {1.0}, {blank}, {"3"}}, true, true);
    EXPECT_EQ(withBlanks.raised.number, 0);
    EXPECT_TRUE(withBlanks.flag);
    EXPECT_EQ(withBlanks.rows, Long(3));
    EXPECT_EQ(withBlanks.cells, Long(2));
    EXPECT_EQ(withBlanks.blanks, Long(1));

    const Checked without = checkData({{1.0, 2.0}, {2.0, 3.0}}, false, true);
    EXPECT_FALSE(without.flag);
    EXPECT_EQ(without.rows, Long(2));
    EXPECT_EQ(without.cells, Long(4));
    EXPECT_EQ(without.blanks, Long(0));
}

TEST(CheckDataFlag, TrueStillRefusesTextsAndEmptyRanges) {
    EXPECT_EQ(checkData({{blank}, {"x"}}, false, true).raised.number, tbvNPTextInData);
    EXPECT_EQ(checkData({{blank}, {blank}}, false, true).raised.number, tbvNPNoData);
}

TEST(CheckDataAreas, AreAllChecked) {
    const ObjectRef<Application> host = Support::testHost();
    dataRange(host, {{1.0, blank, 3.0}, {2.0, blank, "x"}});
    const RangeRef range = host->GetRange("Data!B2:B3,Data!D2:D3");
    Long first;
    Long second;
    Long third;
    bool flag = false;
    const Support::Raised raised =
        Support::raisedBy([&] { createDataCheck()->CheckData(range, false, first, second, third, flag); });
    EXPECT_EQ(raised.description, "Data!D3 holds the text \"x\"; every cell of the range must be a number.");
}

TEST(CheckDataCost, IsOneReadingOfEachArea) {
    const ObjectRef<Application> host = Support::testHost();
    dataRange(host, ValueGrid(1000, 3, 1.0));
    Long readings;
    const ObjectRef<Application> watched = Support::watchHost(host, [&](const Support::HostCall& call) {
        if (call.operation == "Range.GetValue") {
            ++readings;
        }
    });
    Long first;
    Long second;
    Long third;
    bool flag = false;
    createDataCheck()->CheckData(watched->GetRange("Data!B2:B1001,Data!D2:D1001"), false, first, second,
                                 third, flag);
    EXPECT_EQ(readings, Long(2));
}

// clang-format off
const CheckCase runsCases[] = {
    {"EveryKindOfCell_Passes", {{"A"}, {1.0}, {true}, {blank}, {""}}, false, 0, ""},
    {"AnErrorValue", {{"Coin"}, {"A"}, {CellError::NotAvailable}}, true, tbvNPErrorInData,
     "Data!B4 holds the error #N/A; every cell below the header must be free of errors."},
    {"AnErrorInTheHeader_Passes", {{CellError::NotAvailable}, {"A"}}, true, 0, ""},
    {"OnlyAHeader", {{"Coin"}}, true, tbvNPNoData,
     "Data!B2 holds no data below its header; choose a range with at least one value."},
    {"OnlyBlanks", {{blank}, {blank}}, false, tbvNPNoData,
     "Data!B2:B3 holds no data; choose a range with at least one value."},
};
// clang-format on

class CheckRunsData : public ::testing::TestWithParam<CheckCase> {};

TEST_P(CheckRunsData, RefusesOnlyErrorValues) {
    const ObjectRef<Application> host = Support::testHost();
    const RangeRef range = dataRange(host, GetParam().cells);
    const Support::Raised raised =
        Support::raisedBy([&] { createDataCheck()->CheckRunsData(range, GetParam().headers); });
    EXPECT_EQ(raised.number, GetParam().number);
    EXPECT_EQ(raised.description, GetParam().description);
}

INSTANTIATE_TEST_SUITE_P(DataCheck, CheckRunsData, ::testing::ValuesIn(runsCases), caseName);

struct OutputCase {
    std::string name;
    std::string address;
    std::int32_t columns;
    std::int32_t rows;
    bool overwrite;
    std::int32_t number;
    std::string description;
};

// clang-format off
const OutputCase outputCases[] = {
    {"AFreeBlock_Passes",             "Data!D1",        2, 9, false, 0, ""},
    {"BelowTheData_Passes",           "Data!B5",        2, 9, false, 0, ""},
    {"TheLastCellOfTheSheet_Passes",  "Data!XFD1048576", 1, 1, false, 0, ""},
    {"OneRowTooMany",    "Data!A1048576", 1, 2, true, tbvNPOutputOffSheet,
     "The report needs 2 rows and 1 columns and does not fit on the sheet from Data!A1048576; choose a cell "
     "further up or to the left."},
    {"OneColumnTooMany", "Data!XFD1", 2, 1, true, tbvNPOutputOffSheet,
     "The report needs 1 rows and 2 columns and does not fit on the sheet from Data!XFD1; choose a cell "
     "further up or to the left."},
    {"OverTheData", "Data!A1", 3, 9, false, tbvNPOutputOccupied,
     "Data!B3 holds a value and the report needs Data!A1:C9; clear these cells, choose another place or allow "
     "overwriting."},
    {"OverTheDataWhenAllowed_Passes", "Data!A1", 3, 9, true, 0, ""},
    {"OfSeveralCells_TheFirstCounts", "Data!A1:Z99", 1, 9, false, 0, ""},
    {"OfSeveralCells_TheFirstCountsOverData", "Data!B3:B4", 1, 1, false, tbvNPOutputOccupied,
     "Data!B3 holds a value and the report needs Data!B3; clear these cells, choose another place or allow "
     "overwriting."},
};
// clang-format on

class CheckOutputArea : public ::testing::TestWithParam<OutputCase> {};

/// Values stand in Data!B3:B4, and an empty B2 above them.
TEST_P(CheckOutputArea, GuardsTheSheet) {
    const ObjectRef<Application> host = Support::testHost();
    dataRange(host, {{blank}, {1.0}, {""}});
    const RangeRef range = host->GetRange(GetParam().address);
    const Support::Raised raised = Support::raisedBy([&] {
        createDataCheck()->CheckOutputArea(range, GetParam().columns, GetParam().rows, GetParam().overwrite);
    });
    EXPECT_EQ(raised.number, GetParam().number);
    EXPECT_EQ(raised.description, GetParam().description);
}

INSTANTIATE_TEST_SUITE_P(DataCheck, CheckOutputArea, ::testing::ValuesIn(outputCases),
                         [](const auto& test) { return test.param.name; });

TEST(DataCheckErrorNumbers, LieInTheLibrarysBand) {
    for (const std::int32_t number : {tbvNPTextInData, tbvNPBooleanInData, tbvNPErrorInData, tbvNPBlankInData,
                                      tbvNPNoData, tbvNPOutputOffSheet, tbvNPOutputOccupied}) {
        EXPECT_GE(number, objectErrorBase + 5000);
        EXPECT_LE(number, objectErrorBase + 5101);
    }
}

}  // namespace
}  // namespace TBVNonPara
