#include "tbvnonpara/workbook/number_format.hpp"

#include <gtest/gtest.h>

namespace TBVNonPara::workbook {
namespace {

struct FormatCase {
    CellValue value;
    const char* format;
    const char* shown;
};

// clang-format off
const FormatCase cases[] = {
    // value                format      shown
    {2.5,                   "0",        "3"},
    {-2.5,                  "0",        "-3"},
    {0.5,                   "0",        "1"},
    {0.4999,                "0",        "0"},
    {0.49999999999999994,   "0",        "1"},       // 0.500000000000000 at 15 digits
    {0.00005,               "0.0000",   "0.0001"},
    {0.00004999,            "0.0000",   "0.0000"},
    {-0.00001,              "0.0000",   "0.0000"},
    {-0.00005,              "0.0000",   "-0.0001"},
    {0.1 + 0.2,             "0.0000",   "0.3000"},
    {1.005,                 "0.00",     "1.01"},    // the double lies below 1.005, its 15 digits do not
    {1.00005,               "0.0000",   "1.0001"},
    {9.99995,               "0.0000",   "10.0000"},
    {9.5,                   "0",        "10"},
    {99.95,                 "0.0",      "100.0"},
    {0.0,                   "0.0000",   "0.0000"},
    {-0.0,                  "0.0",      "0.0"},
    {3.0,                   "0.0",      "3.0"},
    {12.0,                  "0",        "12"},
    {1e20,                  "0",        "100000000000000000000"},
    {123456789012345678.0,  "0.0",      "123456789012346000.0"},
    {1e-300,                "0.0000",   "0.0000"},
    {-1234.5,               "0.0000",   "-1234.5000"},
    {1234567.891,           "#,##0.00", "1,234,567.89"},
    {999999.995,            "#,##0.00", "1,000,000.00"},
    {123.0,                 "#,##0",    "123"},
    {0.1235,                "0.0%",     "12.4%"},   // 12.35 per cent
    {0.5,                   "0%",       "50%"},
    {2.5,                   "General",  "2.5"},
    {2.0,                   "General",  "2"},
    {1.0 / 3,               "General",  "0.333333333333333"},
    {2.0 / 3,               "General",  "0.666666666666667"},
    {0.1 + 0.2,             "General",  "0.3"},
    {1e15,                  "General",  "1E+15"},
    {-0.0,                  "General",  "0"},
    {2.5,                   "",         "2.5"},
    {2.5,                   "@",        "2.5"},
    {2.5,                   "0.",       "2.5"},
    {2.5,                   "dd.mm.yy", "2.5"},
    {"2.5",                 "0",        "2.5"},
    {"  text",              "0.0000",   "  text"},
    {true,                  "0",        "TRUE"},
    {false,                 "General",  "FALSE"},
    {CellError::NotAvailable, "0.0",    "#N/A"},
    {Empty(),               "0.0",      ""},
};
// clang-format on

TEST(NumberFormat, ShowsValuesAsASheetDoes) {
    for (const FormatCase& c : cases) {
        EXPECT_EQ(displayText(c.value, c.format), c.shown) << c.format << " of " << toText(c.value);
    }
}

}  // namespace
}  // namespace TBVNonPara::workbook
