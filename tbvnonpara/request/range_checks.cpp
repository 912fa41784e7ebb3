#include "tbvnonpara/request/range_checks.hpp"

#include "tbvnonpara/core/conversions.hpp"

namespace TBVNonPara {

namespace {

/// One data range or area; what the check counts is not needed here.
void checkCells(const DataCheck& check, const RangeRef& range, bool headers, bool flag) {
    Long first;
    Long second;
    Long third;
    check.CheckData(range, headers, first, second, third, flag);
}

void checkAreas(const DataCheck& check, const RangeRef& range, bool headers, bool flag) {
    const Long areas = range->GetAreasCount();
    for (Long i = 1; i <= areas; ++i) {
        checkCells(check, range->GetAreas(i), headers, flag);
    }
}

bool isSignCode(const CellValue& value) {
    const std::string text = toText(value);
    return text == "1" || text == "-1" || text == "0";
}

}  // namespace

void RangeChecks::checkSignCodes(const RangeRef& yRange) const {
    checkCells(check, yRange, headers, false);
    const WorksheetFunction& functions = application.GetWorksheetFunction();
    const double positive = functions.CountIf(yRange, "1");
    const double negative = functions.CountIf(yRange, "-1");
    const double zero = functions.CountIf(yRange, "0");
    Long n = roundHalfToEven(positive + negative + zero);
    // A label that is itself a code is not data.
    if (headers && isSignCode(yRange->GetCells(1, 1)->GetValue()(1, 1))) {
        n -= 1;
    }
    if (yRange->GetRowsCount() - n != (headers ? 1 : 0)) {
        raise(tbvNPInvalidSignSymbols);
    }
}

void RangeChecks::checkData(const RangeRef& yRange) const {
    switch (method) {
        case tbvNPMedian:
        case tbvNPKWallis:
            checkAreas(check, yRange, headers, true);
            break;
        case tbvNPFriedman:
            checkAreas(check, yRange, headers, false);
            break;
        case tbvNPWWRuns:
            check.CheckRunsData(yRange, headers);
            break;
        default:
            checkCells(check, yRange, headers, false);
    }
}

void RangeChecks::checkPair(const RangeRef& yRange, const RangeRef& xRange) const {
    const bool paired = method == tbvNPWilcoxon || method == tbvNPSpearman;
    if ((paired || method == tbvNPMannU) && !xRange.isSet()) {
        raise(tbvNPNoXRange);
    }
    if (paired && yRange->GetRowsCount() != xRange->GetRowsCount()) {
        raise(tbvNPUnequalPairs);
    }
}

void RangeChecks::checkRows(const RangeRef& yRange) const {
    if (yRange->GetRowsCount() < 2 + (headers ? 1 : 0)) {
        raise(tbvNPTooFewRows);
    }
}

void RangeChecks::checkXData(const RangeRef& xRange) const {
    Long first;
    Long second;
    Long third;
    check.CheckXData(xRange, headers, first, second, third);
}

}  // namespace TBVNonPara
