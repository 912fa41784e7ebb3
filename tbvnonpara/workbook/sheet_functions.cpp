#include "tbvnonpara/workbook/sheet_functions.hpp"

#include <boost/math/distributions/chi_squared.hpp>
#include <boost/math/distributions/fisher_f.hpp>
#include <cmath>
#include <exception>
#include <optional>
#include <string>

#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/distributions/normal.hpp"
#include "tbvnonpara/workbook/host_error.hpp"
#include "tbvnonpara/workbook/sheet_range.hpp"

namespace TBVNonPara::workbook {

namespace {

[[noreturn]] void refuseCall(const std::string& call, const std::string& reason) {
    refuse(call + " has no value: " + reason + '.');
}

/// The upper tail of a distribution of positive x; `call` is the function with its arguments.
template <typename Distribution, typename... Parameters>
double upperTail(const std::string& call, double x, Parameters... degreesOfFreedom) {
    if (!std::isfinite(x) || x < 0) {
        refuseCall(call, "x must be a number that is not negative");
    }
    if (((degreesOfFreedom < Long(1)) || ...)) {
        refuseCall(call, "there must be at least one degree of freedom");
    }
    try {
        const Distribution distribution(toDouble(degreesOfFreedom)...);
        return boost::math::cdf(boost::math::complement(distribution, x));
    } catch (const std::exception& error) {
        refuseCall(call, error.what());
    }
}

/// Whether a cell that is not blank equals the criterion.
class Criterion {
 public:
    explicit Criterion(std::string_view criterion)
        : m_Text(foldCase(criterion)), m_Number(readAsNumber(criterion)) {}

    [[nodiscard]] bool equals(const CellValue& value) const {
        if (const auto* number = std::get_if<double>(&value)) {
            return m_Number && *number == *m_Number;
        }
        if (const auto* text = std::get_if<Text>(&value)) {
            return text->string().size() == m_Text.size() && foldCase(text->string()) == m_Text;
        }
        return foldCase(toText(value)) == m_Text;
    }

    [[nodiscard]] bool equalsBlank() const { return m_Text.empty(); }

 private:
    std::string m_Text;
    std::optional<double> m_Number;
};

}  // namespace

double SheetFunctions::NORMSDIST(double z) const {
    if (std::isnan(z)) {
        refuseCall("NORMSDIST", "z must be a number");
    }
    return normalLowerTail(z);
}

double SheetFunctions::ChiDist(double x, Long df) const {
    return upperTail<boost::math::chi_squared>("ChiDist(" + toText(x) + "; " + toText(df) + ')', x, df);
}

double SheetFunctions::FDist(double x, Long df1, Long df2) const {
    return upperTail<boost::math::fisher_f>(
        "FDist(" + toText(x) + "; " + toText(df1) + "; " + toText(df2) + ')', x, df1, df2);
}

double SheetFunctions::CountIf(const RangeRef& range, std::string_view criterion) const {
    const SheetRange& cells = ownRange(range);
    requireCalculated(*cells.sheet(), cells.areas());
    const Criterion wanted(criterion);
    double count = 0;
    for (const Rectangle& area : cells.areas()) {
        double filled = 0;
        cells.sheet()->values().visit(area, [&](Index, Index, const CellValue& value) {
            filled += 1;
            count += wanted.equals(value) ? 1 : 0;
        });
        if (wanted.equalsBlank()) {
            count += static_cast<double>(area.cells()) - filled;
        }
    }
    return count;
}

}  // namespace TBVNonPara::workbook
