#include "tbvnonpara/companion/own/report_formatter.hpp"

#include <functional>
#include <gtest/gtest.h>
#include <vector>

#include "tbvnonpara/companion/CompanionLibrary.hpp"
#include "tests/support/test_host.hpp"
#include "tests/support/watched_host.hpp"

namespace TBVNonPara {
namespace {

using Calls = std::vector<std::string>;

/// What an operation of the formatter does to a range of the sheet "Data".
Calls callsOf(const std::string& address,
              const std::function<void(const ReportFormatter&, const RangeRef&)>& operation) {
    Calls calls;
    const ObjectRef<Application> host =
        Support::watchHost(Support::testHost(), [&](const Support::HostCall& call) {
            if (!call.details.empty()) {
                calls.push_back(std::string(call.operation.substr(6)) + ' ' + call.address() + ' ' +
                                call.details);
            }
        });
    operation(*createReportFormatter(), host->GetRange("Data!" + address));
    return calls;
}

struct LookCase {
    std::string name;
    std::string address;
    void (ReportFormatter::*operation)(const RangeRef&, bool) const;
    bool flag;
    Calls calls;
};

// Edges: 7 left, 8 top, 9 bottom, 10 right; line 2 is thin.
// clang-format off
const LookCase cases[] = {
    {"ATitleIsBold",            "A1:A3", &ReportFormatter::FormatTitle, true,  {"LetFontBold A1:A3 True"}},
    {"ATitleIsBold_EitherFlag", "A1",    &ReportFormatter::FormatTitle, false, {"LetFontBold A1 True"}},
    {"HeadingsAreBoldOverALine", "A6:D6", &ReportFormatter::FormatTable, false,
     {"LetFontBold A6:D6 True", "LetBorder A6:D6 9 2"}},
    {"AFinishedTableHasAFrame", "A6:D9", &ReportFormatter::FormatTable, true,
     {"LetBorder A6:D9 7 2", "LetBorder A6:D9 8 2", "LetBorder A6:D9 9 2", "LetBorder A6:D9 10 2"}},
    {"LabelsAtTheSideAreBoldBesideALine",            "A7:A8", &ReportFormatter::FormatTable, true,
     {"LetFontBold A7:A8 True", "LetBorder A7:A8 10 2"}},
    {"LabelsAtTheSideAreBoldBesideALine_EitherFlag", "A7:A8", &ReportFormatter::FormatTable, false,
     {"LetFontBold A7:A8 True", "LetBorder A7:A8 10 2"}},
    {"BodiesArePlainWithFourDecimals",            "B7:D9", &ReportFormatter::FormatBody, false,
     {"LetFontBold B7:D9 False", "LetNumberFormat B7:D9 \"0.0000\""}},
    {"BodiesArePlainWithFourDecimals_EitherFlag", "B7:D9", &ReportFormatter::FormatBody, true,
     {"LetFontBold B7:D9 False", "LetNumberFormat B7:D9 \"0.0000\""}},
};
// clang-format on

class Look : public ::testing::TestWithParam<LookCase> {};

TEST_P(Look, IsQuiet) {
    const LookCase& look = GetParam();
    EXPECT_EQ(
        callsOf(look.address, [&](const ReportFormatter& formatter,
                                  const RangeRef& range) { (formatter.*look.operation)(range, look.flag); }),
        look.calls);
}

INSTANTIATE_TEST_SUITE_P(ReportFormatter, Look, ::testing::ValuesIn(cases),
                         [](const auto& test) { return test.param.name; });

TEST(Style, LeavesTheSheetWithoutAColour) {
    EXPECT_EQ(createReportStyle()->GetInteriorColorIndex(), Integer(-4142));
}

TEST(OwnCompanions, AreComplete) {
    const ObjectRef<Application> host = Support::testHost();
    const CompanionLibrary companions = ownCompanions(host);
    EXPECT_EQ(companions.application, host);
    EXPECT_TRUE(companions.createArrayUtility().isSet());
    EXPECT_TRUE(companions.createDataCheck().isSet());
    EXPECT_TRUE(companions.createReportFormatter().isSet());
    EXPECT_TRUE(companions.createReportStyle().isSet());
    EXPECT_TRUE(companions.createContingencyAnalysis().isSet());
    EXPECT_EQ(companions.constants.HeadingAlignment, AlignCentreAcrossSelection);
    EXPECT_EQ(companions.constants.CountsAlignment, AlignCentre);
    EXPECT_EQ(companions.constants.ReportPaste, PasteKind::All);
}

TEST(OwnCompanions, MakeANewComponentEachTime) {
    const CompanionLibrary companions = ownCompanions(Support::testHost());
    EXPECT_NE(companions.createReportFormatter(), companions.createReportFormatter());
    EXPECT_NE(companions.createContingencyAnalysis(), companions.createContingencyAnalysis());
}

}  // namespace
}  // namespace TBVNonPara
