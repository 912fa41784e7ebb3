#pragma once

#include <string>

#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/core/whole_numbers.hpp"

namespace TBVNonPara {

/// A statistic of a contingency table and its upper-tail probability.
struct ContingencyStatistic {
    double value = 0;
    double p = 0;
};

/// The statistics of a table of observed counts. Give it the table and the options, then Calculate; the
/// results before that, and those a table does not have, are zeros.
class ContingencyAnalysis {
 public:
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
    [[nodiscard]] virtual Long GetDF() const = 0;
    [[nodiscard]] virtual ContingencyStatistic GetChiSquare() const = 0;
    [[nodiscard]] virtual ContingencyStatistic GetLogLikelihood() const = 0;
    /// Whether the corrections for 2 x 2 tables apply, and what they give.
    [[nodiscard]] virtual bool GetHasYates() const = 0;
    [[nodiscard]] virtual ContingencyStatistic GetYates() const = 0;
    [[nodiscard]] virtual bool GetHasCochran() const = 0;
    [[nodiscard]] virtual ContingencyStatistic GetCochran() const = 0;
};

}  // namespace TBVNonPara
