#include "adapters/calc/worksheet_functions.hpp"

#include <cmath>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>

#include "tbvnonpara/core/conversions.hpp"

namespace TBVNonPara::calc {

namespace {

using css::uno::Any;

[[noreturn]] void refuseCall(const std::string& call, const std::string& reason) {
    raiseHostError(call + " has no value: " + reason + '.');
}

// The spreadsheet's tails give 1 for a negative argument, where they have no meaning.
void refuseOutsideDomain(const std::string& call, double x, Long df) {
    if (!std::isfinite(x) || x < 0) {
        refuseCall(call, "x must be a number that is not negative");
    }
    if (df < 1) {
        refuseCall(call, "there must be at least one degree of freedom");
    }
}

std::string lowerCase(std::string_view text) {
    return toUtf8(fromUtf8(text).toAsciiLowerCase());
}

}  // namespace

CalcFunctions::CalcFunctions(std::shared_ptr<Session> session) : m_Session(std::move(session)) {
}

double CalcFunctions::NORMSDIST(double z) const {
    if (std::isnan(z)) {
        refuseCall("NORMSDIST", "z must be a number");
    }
    return call("NORMSDIST", sequenceOf(Any(z)));
}

double CalcFunctions::ChiDist(double x, Long df) const {
    refuseOutsideDomain("ChiDist(" + toText(x) + "; " + toText(df) + ')', x, df);
    return call("CHIDIST", sequenceOf(Any(x), Any(toDouble(df))));
}

double CalcFunctions::FDist(double x, Long df1, Long df2) const {
    const std::string text = "FDist(" + toText(x) + "; " + toText(df1) + "; " + toText(df2) + ')';
    refuseOutsideDomain(text, x, df1);
    refuseOutsideDomain(text, x, df2);
    return call("FDIST", sequenceOf(Any(x), Any(toDouble(df1)), Any(toDouble(df2))));
}

// Counted here and not by COUNTIF, which takes TRUE for 1, refuses several areas and follows the document's
// settings for wildcards.
double CalcFunctions::CountIf(const RangeRef& range, std::string_view criterion) const {
    const std::optional<double> number = readAsNumber(criterion);
    const std::string text = lowerCase(criterion);
    const auto equals = [&](const CellValue& value) {
        const auto* cell = std::get_if<double>(&value);
        return cell != nullptr ? number && *cell == *number : lowerCase(toText(value)) == text;
    };

    double count = 0;
    const Long areas = range->GetAreasCount();
    for (Long area = 1; area <= areas; ++area) {
        const ValueGrid values = range->GetAreas(area)->GetValue();
        for (Long column = 1; column <= values.columns(); ++column) {
            for (const CellValue& value : values.column(column)) {
                count += equals(value) ? 1 : 0;
            }
        }
    }
    return count;
}

double CalcFunctions::call(const char* name, const Arguments& arguments) const {
    m_Session->step();
    return hosted([&] {
        if (!m_Access.is()) {
            m_Access.set(m_Session->context()->getServiceManager()->createInstanceWithContext(
                             "com.sun.star.sheet.FunctionAccess", m_Session->context()),
                         css::uno::UNO_QUERY_THROW);
        }
        double result = 0;
        if (!(m_Access->callFunction(OUString::createFromAscii(name), arguments) >>= result)) {
            refuseCall(name, "the spreadsheet gives an error");
        }
        return result;
    });
}

}  // namespace TBVNonPara::calc
