#pragma once

#include <vector>

#include "tbvnonpara/analysis/choices.hpp"
#include "tbvnonpara/reshaping/column.hpp"
#include "tbvnonpara/reshaping/missing.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::analysis {

/// The conditions of the choices on the rows of a sheet.
class RowConditions {
 public:
    /// Raises a `reshaping::Refusal` for a condition that cannot be read or decided.
    RowConditions(const workbook::EmbeddedApplication& application, const Choices& choices,
                  const workbook::Sheet& sheet, bool headers);

    /// Leaves out the cells of rows that do not fulfil the conditions; returns how many those were. A column
    /// without any cell left is refused.
    std::size_t apply(reshaping::Column& column) const;

 private:
    std::vector<bool> m_Keep;  ///< by row of the sheet; empty without conditions
    std::string m_Explanation;
};

}  // namespace TBVNonPara::analysis
