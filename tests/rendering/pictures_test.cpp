#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tbvnonpara/rendering/data_picture.hpp"
#include "tbvnonpara/rendering/pictures/drawn_data.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"
#include "tests/analysis/data_sheet.hpp"

namespace TBVNonPara::rendering {

namespace {

using analysis::choicesFor;
using analysis::ChosenRanges;
using analysis::finished;
using analysis::workbookOf;
using testing::HasSubstr;
using testing::Not;

/// Columns that are labelled but hold other numbers than those that the engine has seen.
PictureData otherData() {
    const std::vector<CellValue> cells = {100.0, 200.0, 300.0};
    return {{{"One", cells}}, {{"Two", cells}}};
}

const std::string tiedSamples = "a,b\n1,4\n2,9\n3,5\n5,5\n";

TEST(Pictures, SignsAreThoseOfTheEngine) {
    const auto test = finished("a\n1\n-1\n1\n0\n1\n", choicesFor("sign"));
    EXPECT_THAT(dataPicture(tbvNPSign, otherData(), test.engine()),
                HasSubstr("3 positive, 1 neither, 1 negative."));
}

TEST(Pictures, RanksAreThoseOfTheEngine) {
    const auto test = finished(tiedSamples, choicesFor("spearman"));
    const std::string picture = dataPicture(tbvNPSpearman, otherData(), test.engine());
    EXPECT_THAT(picture, HasSubstr("The ranks of One against those of Two, 4 pairs."));
    // Ranks 1 to 4 against 1, 4, 2.5 and 2.5 on scales from 0 to 5 that are 400 wide and 274 high.
    for (const char* const point : {R"(cx="140" cy="245.2")", R"(cx="380" cy="190.4")",
                                    R"(cx="260" cy="135.6")", R"(cx="260" cy="80.8")"}) {
        EXPECT_THAT(picture, HasSubstr(point));
    }
}

TEST(Pictures, DifferencesAndTheirSignsAreThoseOfTheEngine) {
    const auto test = finished(tiedSamples, choicesFor("wilcoxon"));
    EXPECT_THAT(
        dataPicture(tbvNPWilcoxon, otherData(), test.engine()),
        HasSubstr("One minus Two, pair by pair: 0 above zero, 3 below, 1 equal. The line is their median, "
                  "-2.5."));
}

TEST(Pictures, MediansAreThoseOfTheEngineWhereItHoldsThem) {
    analysis::Choices choices = choicesFor("mann-whitney");
    choices.descriptives = true;
    EXPECT_THAT(dataPicture(tbvNPMannU, otherData(), finished(tiedSamples, choices).engine()),
                HasSubstr("Medians: One 2.5, Two 5."));
    choices.descriptives = false;
    EXPECT_THAT(dataPicture(tbvNPMannU, otherData(), finished(tiedSamples, choices).engine()),
                HasSubstr("Medians: One 200, Two 200."));
}

TEST(Pictures, ShowTheDataAsTheyWereBeforeAReportIsPutOverThem) {
    const auto application = workbookOf("x\ny\nx\nx\n");
    analysis::Choices choices = choicesFor("runs");
    choices.output = "Data!A1";
    choices.overwrite = true;
    const ChosenRanges ranges = analysis::chooseRanges(*application, choices);
    const PictureData data = pictureData(*application, ranges.y, ranges.x, ranges.headers);
    const analysis::FinishedTest test = analysis::runTest(application, choices, ranges);
    ASSERT_NE(test.sheet().value(1, 1), CellValue("x"));
    const std::string picture = dataPicture(tbvNPWWRuns, data, test.engine());
    EXPECT_THAT(picture, HasSubstr("4 values in their order, a row for each of 2 categories."));
    EXPECT_THAT(picture, Not(HasSubstr("Results")));
}

TEST(Pictures, AreFilesOfTheirOwnInPlainColoursOnPaper) {
    const auto test = finished("a\n1\n-1\n1\n0\n1\n", choicesFor("sign"));
    const Drawing drawing = drawnData(tbvNPSign, otherData(), test.engine());
    const std::string file = svgFile(drawing, "A \"B\" & C");
    EXPECT_EQ(drawing.description, "3 positive, 1 neither, 1 negative.");
    EXPECT_THAT(file, testing::StartsWith("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"640\" "));
    EXPECT_THAT(file, HasSubstr("<desc>3 positive, 1 neither, 1 negative.</desc>"));
    EXPECT_THAT(file, HasSubstr("fill=\"#ffffff\""));
    EXPECT_THAT(file, HasSubstr(".second { fill: #b4540a; }"));
    EXPECT_THAT(file, HasSubstr("font-family=\"A &quot;B&quot; &amp; C\""));
    // Readers of files know neither of them.
    EXPECT_THAT(file, Not(HasSubstr("var(")));
    EXPECT_THAT(file, Not(HasSubstr("svg .")));
}

TEST(Pictures, WithoutASecondRangeTwoColumnsAreNotDrawn) {
    const auto test = finished(tiedSamples, choicesFor("spearman"));
    EXPECT_EQ(dataPicture(tbvNPSpearman, {otherData().y, {}}, test.engine()), "");
}

}  // namespace

}  // namespace TBVNonPara::rendering
