#include "tests/support/fake_functions.hpp"

#include <boost/math/distributions/chi_squared.hpp>
#include <boost/math/distributions/fisher_f.hpp>
#include <cmath>

namespace TBVNonPara::Support {

double FakeFunctions::NORMSDIST(double z) const {
    enter("NORMSDIST");
    return 0.5 * std::erfc(-z / std::sqrt(2.0));
}

double FakeFunctions::ChiDist(double x, Long df) const {
    enter("ChiDist");
    return cdf(complement(boost::math::chi_squared(toDouble(df)), x));
}

double FakeFunctions::FDist(double x, Long df1, Long df2) const {
    enter("FDist");
    return cdf(complement(boost::math::fisher_f(toDouble(df1), toDouble(df2)), x));
}

double FakeFunctions::CountIf(const RangeRef&, std::string_view) const {
    raise(RuntimeError::InternalError);
}

void FakeFunctions::enter(const char* name) const {
    calls.emplace_back(name);
    if (failure) {
        throw *failure;
    }
}

}  // namespace TBVNonPara::Support
