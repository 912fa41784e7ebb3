#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "tbvnonpara/companion/CompanionLibrary.hpp"
#include "tests/support/raised.hpp"

namespace TBVNonPara {
namespace {

using Support::raisedBy;

TEST(Sheetless, HasTheProbabilities) {
    const CompanionLibrary companions = ownCompanions(nullptr);
    const WorksheetFunction& functions = companions.application->GetWorksheetFunction();
    EXPECT_DOUBLE_EQ(functions.NORMSDIST(0), 0.5);
    // With two degrees of freedom above the line both tails have a closed form.
    EXPECT_NEAR(functions.ChiDist(7.2, 2), std::exp(-3.6), 1e-15);
    EXPECT_NEAR(functions.FDist(27, 2, 5), std::pow(1 + 2 * 27.0 / 5, -2.5), 1e-15);
    EXPECT_EQ(functions.ChiDist(0, 1), 1);
}

TEST(Sheetless, RefusesArgumentsOutsideADomain) {
    const CompanionLibrary companions = ownCompanions(nullptr);
    const WorksheetFunction& functions = companions.application->GetWorksheetFunction();
    constexpr double infinite = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(raisedBy([&] { (void)functions.ChiDist(-1, 1); }).number, 5);
    EXPECT_EQ(raisedBy([&] { (void)functions.ChiDist(1, 0); }).number, 5);
    EXPECT_EQ(raisedBy([&] { (void)functions.FDist(infinite, 1, 1); }).number, 5);
    EXPECT_EQ(raisedBy([&] { (void)functions.FDist(nan, 1, 1); }).number, 5);
    EXPECT_EQ(raisedBy([&] { (void)functions.FDist(1, 1, 0); }).number, 5);
}

TEST(Sheetless, HasNoCells) {
    const CompanionLibrary companions = ownCompanions(nullptr);
    Application& application = *companions.application;
    EXPECT_EQ(raisedBy([&] { (void)application.GetRange("A1"); }).number, 91);
    EXPECT_EQ(raisedBy([&] { (void)application.GetWorkbooks("tbv2007.xlam"); }).number, 91);
    EXPECT_EQ(raisedBy([&] { (void)application.AddWorksheets(); }).number, 91);
    EXPECT_EQ(raisedBy([&] { application.LetScreenUpdating(true); }).number, 91);
    EXPECT_EQ(raisedBy([&] { (void)application.GetWorksheetFunction().CountIf({}, "1"); }).number, 91);
}

}  // namespace
}  // namespace TBVNonPara
