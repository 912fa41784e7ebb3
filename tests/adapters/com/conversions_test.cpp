#include <gtest/gtest.h>

#include "adapters/com/errors.hpp"
#include "adapters/com/text.hpp"
#include "adapters/com/variant.hpp"
#include "tests/support/raised.hpp"

namespace TBVNonPara::com {

namespace {

struct Entry {
    const char* name;
    const char* text;
    const char* entered;
};

void PrintTo(const Entry& entry, std::ostream* out) {
    *out << entry.name;
}

class EnteredText : public testing::TestWithParam<Entry> {};

TEST_P(EnteredText, StaysThatText) {
    EXPECT_EQ(asEntered(GetParam().text), GetParam().entered);
}

// clang-format off
const Entry entries[] = {
    {"WordsStandAsTheyAre",       "Group Mean",        "Group Mean"},
    {"AHyphenIsMarked",           "Jan-Feb",           "'Jan-Feb"},
    {"ALetterStandsAsItIs",       "U",                 "U"},
    {"ATitleStandsAsItIs",        "Results for:",      "Results for:"},
    {"ANumberIsMarked",           "12",                "'12"},
    {"ADateIsMarked",             "Jan 5",             "'Jan 5"},
    {"AFormulaIsMarked",          "=A1",               "'=A1"},
    {"APlusIsMarked",             "+x",                "'+x"},
    {"ATruthWordIsMarked",        "True",              "'True"},
    {"AnErrorIsMarked",           "#N/A",              "'#N/A"},
    {"AnApostropheIsMarked",      "'tis",              "''tis"},
    {"ALeadingBlankIsMarked",     " a",                "' a"},
    {"NothingIsMarked",           "",                  "'"},
    {"AnotherAlphabetIsMarked",   "\xD0\x98",          "'\xD0\x98"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Com, EnteredText, testing::ValuesIn(entries),
                         [](const auto& tested) { return tested.param.name; });

TEST(Texts, KeepEveryCharacterBothWays) {
    const std::string text = std::string("a\0b", 3) + "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80";
    const BSTR wide = toBstr(text);
    EXPECT_EQ(SysStringLen(wide), 7U);
    EXPECT_EQ(toUtf8(wide), text);
    SysFreeString(wide);
}

TEST(Texts, NullPointerIsAnEmptyText) {
    EXPECT_EQ(toUtf8(static_cast<BSTR>(nullptr)), "");
}

TEST(Texts, HalfASurrogatePairBecomesTheReplacementCharacter) {
    EXPECT_EQ(toUtf8(std::wstring_view(L"\xD83D")), "\xEF\xBF\xBD");
}

TEST(Values, EveryKindOfCellComesBackAsItWas) {
    const CellValue cells[] = {Empty{}, 1.5, Text("1.5"), Text(""), true, false, CellError::NotAvailable};
    for (const CellValue& cell : cells) {
        EXPECT_EQ(fromVariant(toVariant(cell, Texts::AsHeld).get()), cell);
    }
}

TEST(Values, DatesAmountsAndWholeNumbersAreNumbers) {
    VARIANT date{};
    date.vt = VT_DATE;
    date.date = 45000.5;
    EXPECT_EQ(fromVariant(date), CellValue(45000.5));
    VARIANT amount{};
    amount.vt = VT_CY;
    amount.cyVal.int64 = 12500;
    EXPECT_EQ(fromVariant(amount), CellValue(1.25));
    VARIANT whole{};
    whole.vt = VT_I2;
    whole.iVal = -7;
    EXPECT_EQ(fromVariant(whole), CellValue(-7.0));
}

struct ErrorCell {
    SCODE code;
    const char* shown;
};

TEST(Values, ErrorsOfCellsBearTheirNames) {
    const ErrorCell cells[] = {{2000, "#NULL!"},    {2007, "#DIV/0!"},       {2015, "#VALUE!"},
                               {2023, "#REF!"},     {2029, "#NAME?"},        {2036, "#NUM!"},
                               {2042, "#N/A"},      {2043, "#GETTING_DATA"}, {2045, "#SPILL!"},
                               {2046, "#CONNECT!"}, {2047, "#BLOCKED!"},     {2048, "#UNKNOWN!"},
                               {2049, "#FIELD!"},   {2050, "#CALC!"},        {2999, "#ERROR!"}};
    for (const ErrorCell& cell : cells) {
        EXPECT_EQ(toText(fromVariant(Variant::error(static_cast<SCODE>(0x800A0000) + cell.code).get())),
                  cell.shown);
    }
}

TEST(Values, AnObjectIsATypeMismatch) {
    const Variant object{ComPtr<IDispatch>()};
    EXPECT_EQ(Support::raisedBy([&] { (void)fromVariant(object.get()); }).number, 13);
}

TEST(Values, GridsTravelAsArraysCountedFromOne) {
    const ValueGrid grid{{1.0, "a"}, {Empty{}, true}, {CellError::Value, "7"}};
    const Variant array = toVariant(grid, Texts::AsHeld);
    ASSERT_EQ(array.get().vt, VT_ARRAY | VT_VARIANT);
    SAFEARRAY* raw = array.get().parray;
    for (const UINT dimension : {1U, 2U}) {
        LONG first = 0;
        SafeArrayGetLBound(raw, dimension, &first);
        EXPECT_EQ(first, 1);
    }
    LONG position[] = {3, 2};
    Variant element;
    SafeArrayGetElement(raw, position, element.out());
    EXPECT_EQ(fromVariant(element.get()), CellValue("7"));
    EXPECT_EQ(gridFromVariant(array.get()), grid);
}

TEST(Values, OneCellIsAGridOfOneCell) {
    EXPECT_EQ(gridFromVariant(Variant(2.0).get()), (ValueGrid{{2.0}}));
}

TEST(Values, AListCountsFromOne) {
    const CellValue cells[] = {"U", 9.0};
    const Variant list = toVariant(std::span<const CellValue>(cells), Texts::AsEntered);
    LONG position = 2;
    Variant element;
    ASSERT_EQ(SafeArrayGetDim(list.get().parray), 1U);
    SafeArrayGetElement(list.get().parray, &position, element.out());
    EXPECT_EQ(fromVariant(element.get()), CellValue(9.0));
}

TEST(Values, AnArrayOfAnotherShapeIsATypeMismatch) {
    const CellValue cells[] = {1.0};
    const Variant list = toVariant(std::span<const CellValue>(cells), Texts::AsHeld);
    EXPECT_EQ(Support::raisedBy([&] { (void)gridFromVariant(list.get()); }).number, 13);
}

struct NumberCase {
    std::int32_t number;
    std::uint32_t status;
};

TEST(ErrorNumbers, TravelAsStatusesAndBack) {
    const NumberCase cases[] = {{-2147216493, 0x80041393}, {91, 0x800A005B}, {1004, 0x800A03EC}};
    for (const NumberCase& one : cases) {
        EXPECT_EQ(static_cast<std::uint32_t>(toHresult(one.number)), one.status);
        EXPECT_EQ(numberOf(static_cast<HRESULT>(one.status)), one.number);
    }
}

TEST(ErrorNumbers, ZeroAndNumbersAboveTheRuntimesAreStillFailures) {
    EXPECT_EQ(toHresult(0), E_FAIL);
    EXPECT_EQ(toHresult(70000), E_FAIL);
}

TEST(ErrorNumbers, FailuresWithoutInformationAreTheRuntimeErrorsTheyStandFor) {
    EXPECT_EQ(errorOf(DISP_E_TYPEMISMATCH).number(), 13);
    EXPECT_EQ(errorOf(E_OUTOFMEMORY).number(), 7);
    EXPECT_EQ(errorOf(DISP_E_UNKNOWNNAME).number(), 438);
    EXPECT_EQ(errorOf(DISP_E_BADINDEX).number(), 9);
    EXPECT_EQ(errorOf(static_cast<HRESULT>(0x800706BE)).number(), static_cast<HRESULT>(0x800706BE));
}

}  // namespace

}  // namespace TBVNonPara::com
