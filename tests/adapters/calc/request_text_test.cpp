#include "adapters/calc/request_text.hpp"

#include <gtest/gtest.h>

namespace TBVNonPara::calc {

namespace {

RequestText example() {
    RequestText request;
    request.settings.method = tbvNPFriedman;
    request.settings.tails = tbvNPVar1LTVar2;
    request.settings.headers = false;
    request.settings.descriptives = true;
    request.settings.liveFigures = true;
    request.settings.groupsInOneColumn = true;
    request.settings.omitMissing = true;
    request.settings.visibleRowsOnly = true;
    request.settings.groups = {"b;\"c\"", "a & b = 100 %", "Größe"};
    request.settings.details = {true, "97,5 %", statistics::Adjustment::BenjaminiHochberg, true};
    request.fingerprint = "0123abcd";
    request.report = "$'It''s; here'.$A$1:$D$9";
    request.first = {"$Data.$A$1:$A$9", "$Data.$C$1:$C$9"};
    request.groups = {"$'\"'.$B:$B"};
    request.blocks = {"$Data.$D$1:$D$9"};
    return request;
}

TEST(RequestText, ComesBackFromItsFormula) {
    EXPECT_EQ(readRequest(formulaOf(example())), example());
    RequestText plain;
    plain.report = "$A.$A$1:$B$2";
    plain.first = {"$A.$C$1:$C$9"};
    EXPECT_EQ(readRequest(formulaOf(plain)), plain);
}

TEST(RequestText, HasNoLongTextConstant) {
    RequestText request = example();
    request.settings.groups.assign(40, "a group with a long name");
    const std::string formula = formulaOf(request);
    EXPECT_EQ(readRequest(formula), request);
    for (std::size_t at = formula.find('"'); at != std::string::npos;) {
        const std::size_t end = formula.find('"', at + 1);
        EXPECT_LE(end - at, 255U);
        at = formula.find('"', end + 1);
        if (formula.find(';', end) == std::string::npos || formula.compare(end + 1, 2, ";\"") != 0) {
            break;
        }
    }
}

TEST(RequestText, OfAnotherVersionOrOfSomebodyElseIsNone) {
    for (const char* formula :
         {"", "$Data.$A$1", "CHOOSE(1;\"\";$A.$A$1)", "CHOOSE(1;\"v=2&method=0\";$A.$A$1)",
          "CHOOSE(1;\"v=1&method=8\";$A.$A$1)", "CHOOSE(1;\"v=1&method=0\")",
          "CHOOSE(1;\"v=1&method=0&areas1=2\";$A.$A$1;$A.$B$1)", "CHOOSE(1;"}) {
        EXPECT_EQ(readRequest(formula), std::nullopt) << formula;
    }
}

TEST(RequestText, KnowsAReferenceThatIsLost) {
    EXPECT_TRUE(isLost("#REF!"));
    EXPECT_TRUE(isLost("$#REF!.$A$1:$A$3"));
    EXPECT_FALSE(isLost("$Data.$A$1:$A$3"));
}

}  // namespace

}  // namespace TBVNonPara::calc
