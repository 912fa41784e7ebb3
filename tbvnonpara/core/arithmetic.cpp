#include "tbvnonpara/core/arithmetic.hpp"

#include <cmath>

#include "tbvnonpara/core/error.hpp"

namespace TBVNonPara {

double checked(double result) {
    if (!std::isfinite(result)) {
        raise(RuntimeError::Overflow);
    }
    return result;
}

double divide(double dividend, double divisor) {
    if (divisor == 0) {
        raise(dividend == 0 ? RuntimeError::Overflow : RuntimeError::DivisionByZero);
    }
    return checked(dividend / divisor);
}

double squareRoot(double radicand) {
    if (radicand < 0) {
        raise(RuntimeError::InvalidProcedureCall);
    }
    return checked(std::sqrt(radicand));
}

}  // namespace TBVNonPara
