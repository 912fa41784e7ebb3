#pragma once

#include <string>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/core/whole_numbers.hpp"

namespace TBVNonPara {

/// A statistic of a contingency table and its upper-tail probability.
struct ContingencyStatistic {
    double value = 0;  ///< the statistic
    double p = 0;      ///< of a value as large or larger
};

/// The statistics of a table of observed counts. Give it the table and the options, then Calculate; the
/// results before that, and those a table does not have, are zeros.
class TBVNONPARA_API ContingencyAnalysis {
 public:
    /// Components derive from this class.
    virtual ~ContingencyAnalysis() = default;

    /// The observed counts, r x c, with or without labels around them.
    virtual void LetObserved(const ValueGrid& table) = 0;
    /// Where expected frequencies come from: 0, the margins of the table.
    virtual void LetExpectedFrom(Long source) = 0;
    /// True when the first row and the first column hold labels.
    virtual void LetLabels(bool labels) = 0;

    /// Raises an error with a description for a table without degrees of freedom or without observations.
    virtual void Calculate() = 0;

    /// Expected frequencies, r x c, without labels.
    [[nodiscard]] virtual Grid<double> GetExpected() const = 0;
    /// Empty when no more than 20 % of the expected frequencies are below 5 and none is below 1.
    [[nodiscard]] virtual std::string GetWarning() const = 0;
    /// Degrees of freedom, (r - 1)(c - 1).
    [[nodiscard]] virtual Long GetDF() const = 0;
    /// Pearson's chi-square.
    [[nodiscard]] virtual ContingencyStatistic GetChiSquare() const = 0;
    /// The log-likelihood ratio G.
    [[nodiscard]] virtual ContingencyStatistic GetLogLikelihood() const = 0;
    /// Whether Yates's correction for 2 x 2 tables applies.
    [[nodiscard]] virtual bool GetHasYates() const = 0;
    /// Chi-square with it.
    [[nodiscard]] virtual ContingencyStatistic GetYates() const = 0;
    /// Whether Cochran's correction for 2 x 2 tables applies.
    [[nodiscard]] virtual bool GetHasCochran() const = 0;
    /// Chi-square with it, in Haber's form.
    [[nodiscard]] virtual ContingencyStatistic GetCochran() const = 0;
};

}  // namespace TBVNonPara
