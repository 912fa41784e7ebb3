#pragma once

namespace TBVNonPara::workbook {

/// Lower tail of the standard normal distribution, erfc(-z / sqrt(2)) / 2, within two units in the last
/// place for every z that is a number, also where the result is subnormal.
[[nodiscard]] double normalLowerTail(double z);

}  // namespace TBVNonPara::workbook
