#pragma once

#include <optional>

namespace TBVNonPara::statistics {

/// The noncentralities between which an observed statistic lies within the level: the chance of a smaller one
/// is as far above half of the rest at the one end as at the other (Steiger 2004, Smithson 2003). 0 where no
/// noncentrality fits.
struct Noncentralities {
    double low = 0;
    double high = 0;
};

[[nodiscard]] std::optional<Noncentralities> noncentralChiSquare(double value, double df, double confidence);
[[nodiscard]] std::optional<Noncentralities> noncentralF(double value, double df1, double df2,
                                                         double confidence);

}  // namespace TBVNonPara::statistics
