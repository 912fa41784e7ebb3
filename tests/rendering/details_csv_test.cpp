#include "tbvnonpara/rendering/details_csv.hpp"

#include <gtest/gtest.h>

#include "tests/rendering/written.hpp"
#include "tests/support/details_of_tests.hpp"

namespace TBVNonPara::rendering {
namespace {

TEST(DetailsCsv, IsATidyTable) {
    const std::string text = writtenBy([](Output& output) { writeDetailsCsv(groupDetails(), output); });
    EXPECT_EQ(text.substr(0, text.find("\r\n", 2)),
              "\r\nblock,name,first,second,n,value,low,high,df,p,p_adjusted,log10_p,note");
    EXPECT_NE(text.find("\r\neffect,epsilonSquared,,,,"), std::string::npos) << text;
    EXPECT_NE(text.find("\r\nprobability,f,,,,"), std::string::npos) << text;
    EXPECT_NE(text.find(",2 12,"), std::string::npos) << text;
    EXPECT_NE(text.find("\r\ngroup,median,b,,5,13,,,,,,,\r\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\r\ncomparison,z,a,b,,"), std::string::npos) << text;
}

TEST(DetailsCsv, HasARowForEachWayToGetP) {
    const std::string text = writtenBy([](Output& output) { writeDetailsCsv(sleepDetails(), output); });
    EXPECT_NE(text.find("\r\ngroup,median,Drug1,,10,0.35,-1.2,3.4,,,,,level 0.978515625\r\n"),
              std::string::npos);
    for (const std::string row : {"probability,exact,,,,,", "probability,normal,,,,-1.854",
                                  "probability,robust,,,,-2.144", "probability,normal.corrected,,,,-1.816"}) {
        EXPECT_NE(text.find("\r\n" + row), std::string::npos) << row << text;
    }
}

}  // namespace
}  // namespace TBVNonPara::rendering
