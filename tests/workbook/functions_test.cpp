#include <bit>
#include <charconv>
#include <cmath>
#include <fstream>
#include <limits>

#include "tbvnonpara/workbook/embedded_application.hpp"
#include "tests/workbook/refused.hpp"

namespace TBVNonPara::workbook {
namespace {

const SheetFunctions functions;

double parsed(std::string_view text) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    EXPECT_TRUE(error == std::errc() || number == 0) << text;
    return number;
}

/// How many doubles lie between two that are not negative.
std::int64_t unitsApart(double a, double b) {
    return std::abs(std::bit_cast<std::int64_t>(a) - std::bit_cast<std::int64_t>(b));
}

TEST(NORMSDIST, IsWithinTwoUnitsInTheLastPlaceOfTheReference) {
    std::ifstream reference(TBVNONPARA_TESTS "/reference/normal.csv");
    std::string line;
    std::getline(reference, line);
    int cases = 0;
    std::int64_t worst = 0;
    while (std::getline(reference, line)) {
        const std::size_t comma = line.find(',');
        const std::string_view text = line;
        const double z = parsed(text.substr(0, comma));
        // The reference is rounded to the nearest double here, which is half a unit of the two allowed.
        const std::int64_t units = unitsApart(functions.NORMSDIST(z), parsed(text.substr(comma + 1)));
        EXPECT_LE(units, 1) << line;
        worst = std::max(worst, units);
        cases += 1;
    }
    EXPECT_GT(cases, 1000);
    RecordProperty("worst", std::to_string(worst));
}

TEST(NORMSDIST, GoesOverIntoSubnormalNumbersAndThenZero) {
    EXPECT_EQ(std::fpclassify(functions.NORMSDIST(-38)), FP_SUBNORMAL);
    EXPECT_EQ(functions.NORMSDIST(-38.467405617144344), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(functions.NORMSDIST(-1e300), 0);
    EXPECT_EQ(functions.NORMSDIST(-std::numeric_limits<double>::infinity()), 0);
    EXPECT_EQ(functions.NORMSDIST(std::numeric_limits<double>::infinity()), 1);
    EXPECT_EQ(functions.NORMSDIST(0), 0.5);
    EXPECT_EQ(functions.NORMSDIST(-0.0), 0.5);
}

TEST(NORMSDIST, NeverFallsAsZGrows) {
    double before = 0;
    for (double z = -39; z <= 9.5; z += 1.0 / 512) {
        const double p = functions.NORMSDIST(z);
        EXPECT_GE(p, before) << z;
        before = p;
    }
}

TEST(NORMSDIST, RefusesNaN) {
    expectRefused([] { (void)functions.NORMSDIST(std::nan("")); }, "z must be a number");
}

TEST(ChiDist, GivesTheUpperTail) {
    // With two degrees of freedom the tail is exp(-x/2); with four exp(-x/2) (1 + x/2).
    EXPECT_NEAR(functions.ChiDist(3, 2), std::exp(-1.5), 1e-16);
    EXPECT_NEAR(functions.ChiDist(3, 4), std::exp(-1.5) * 2.5, 2e-16);
    EXPECT_EQ(functions.ChiDist(0, 3), 1);
    // The far tail keeps its digits: a relative 1e-13.
    EXPECT_NEAR(functions.ChiDist(1400, 2) / std::exp(-700.0), 1, 1e-13);
    // R: pchisq(3.84, 1, lower.tail = FALSE)
    EXPECT_NEAR(functions.ChiDist(3.84, 1), 0.050043521248705147, 1e-15);
}

TEST(FDist, GivesTheUpperTail) {
    // With 2 and 2 degrees of freedom the tail is 1/(1 + x); with 2 and d it is (1 + 2x/d)^(-d/2).
    EXPECT_NEAR(functions.FDist(3, 2, 2), 0.25, 1e-15);
    EXPECT_NEAR(functions.FDist(5, 2, 10), std::pow(2.0, -5), 1e-15);
    EXPECT_EQ(functions.FDist(0, 3, 4), 1);
    EXPECT_NEAR(functions.FDist(1e6, 2, 20) / std::pow(1 + 1e5, -10), 1, 1e-12);
}

TEST(Tails, OfArgumentsOutsideTheDomainAreRefused) {
    expectRefused([] { (void)functions.ChiDist(-1, 3); }, "ChiDist(-1; 3) has no value: x must be");
    expectRefused([] { (void)functions.ChiDist(1, 0); }, "at least one degree of freedom");
    expectRefused([] { (void)functions.ChiDist(std::nan(""), 1); }, "x must be a number");
    expectRefused([] { (void)functions.ChiDist(INFINITY, 1); }, "x must be a number");
    expectRefused([] { (void)functions.FDist(-1e-300, 1, 1); }, "FDist(-1E-300; 1; 1) has no value");
    expectRefused([] { (void)functions.FDist(1, 0, 5); }, "at least one degree of freedom");
    expectRefused([] { (void)functions.FDist(1, 5, -2); }, "FDist(1; 5; -2) has no value");
}

class CountIf : public testing::Test {
 protected:
    CountIf() {
        m_Application->addSheet("Data", ValueGrid{{1.0, "1", true, Empty()},
                                                  {-1.0, "-1", false, "x"},
                                                  {1.0, "1.0", CellError::NotAvailable, "X"},
                                                  {0.0, " 1", Empty(), "Größe"},
                                                  {1.0000000000000002, "", 5.0, "GRÖSSE"}});
    }

    double count(std::string_view address, std::string_view criterion) {
        return m_Application->GetWorksheetFunction().CountIf(m_Application->GetRange(address), criterion);
    }

    ObjectRef<EmbeddedApplication> m_Application = makeApplication();
};

TEST_F(CountIf, ANumberMatchesNumbersThatAreExactlyEqual) {
    EXPECT_EQ(count("A1:A5", "1"), 2);
    EXPECT_EQ(count("A1:A5", "-1"), 1);
    EXPECT_EQ(count("A1:A5", "0"), 1);
    EXPECT_EQ(count("A1:A5", "1.0"), 2);
    EXPECT_EQ(count("A1:A5", "2"), 0);
}

TEST_F(CountIf, ANumberMatchesOnlyTheTextThatIsWrittenLikeIt) {
    EXPECT_EQ(count("B1:B5", "1"), 1);
    EXPECT_EQ(count("B1:B5", "1.0"), 1);
}

TEST_F(CountIf, ANumberMatchesNoBooleanErrorOrBlank) {
    EXPECT_EQ(count("C1:C4", "1"), 0);
    EXPECT_EQ(count("C1:C4", "-1"), 0);
    EXPECT_EQ(count("C1:D4", "0"), 0);
}

TEST_F(CountIf, ATextMatchesInEitherCase) {
    EXPECT_EQ(count("D1:D5", "x"), 2);
    EXPECT_EQ(count("D1:D5", "größe"), 1);
    EXPECT_EQ(count("D1:D5", "*"), 0);
}

TEST_F(CountIf, BooleansAndErrorsMatchTheirText) {
    EXPECT_EQ(count("C1:C5", "true"), 1);
    EXPECT_EQ(count("C1:C5", "#n/a"), 1);
}

TEST_F(CountIf, TheEmptyCriterionMatchesBlanksAndEmptyTexts) {
    EXPECT_EQ(count("A1:D5", ""), 3);
    EXPECT_EQ(count("Z1:Z1000000", ""), 1000000);
}

TEST_F(CountIf, AllAreasAreCounted) {
    EXPECT_EQ(count("A1:A3,B1:B2", "1"), 3);
    EXPECT_EQ(count("A1,A1", "1"), 2);
}

}  // namespace
}  // namespace TBVNonPara::workbook
