#include "tbvnonpara/rendering/column_table.hpp"

#include <gtest/gtest.h>

#include "tests/rendering/written.hpp"

namespace TBVNonPara::rendering {

namespace {

using analysis::ColumnTest;

std::vector<ColumnTest> twoColumns() {
    std::vector<ColumnTest> tests(2);
    tests[0].column = "a,b";
    tests[0].address = "Data!$A$1:$A$4";
    tests[0].results = {{"u", 4.5}, {"df", Array<Long>{2, 1}}, {"method", std::string("exact")}};
    tests[0].account.units = 4;
    tests[0].account.missing = 1;
    tests[1].column = "c";
    tests[1].error = Error(11, "All values are equal.");
    return tests;
}

TEST(ATableOfColumns, HasARowForEachInCsv) {
    EXPECT_EQ(writtenBy([](Output& output) { writeColumnsAsCsv(twoColumns(), {}, output); }),
              "column,u,df.1,df.2,method,missing,error\r\n"
              "\"a,b\",4.5,2,1,exact,1,\r\n"
              "c,,,,,,All values are equal.\r\n");
}

TEST(ATableOfColumns, HasAnObjectForEachInJson) {
    EXPECT_EQ(writtenBy([](Output& output) { writeColumnsAsJson("sign", twoColumns(), output); }),
              "{\n  \"test\": \"sign\",\n  \"columns\": [\n"
              "    {\"column\": \"a,b\", \"address\": \"Data!$A$1:$A$4\", \"missing\": {\"dropped\": 1, "
              "\"rows\": 4, \"of\": \"values\"}, \"results\": {\"u\": 4.5, \"df\": [2, 1], \"method\": "
              "\"exact\"}},\n"
              "    {\"column\": \"c\", \"address\": \"\", \"error\": {\"number\": 11, \"description\": "
              "\"All values are equal.\"}}\n  ]\n}\n");
}

}  // namespace

}  // namespace TBVNonPara::rendering
