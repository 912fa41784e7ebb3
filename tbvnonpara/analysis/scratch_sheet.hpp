#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "tbvnonpara/analysis/ranges.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::analysis {

/// A sheet for the data of a test, in the user's workbook as long as it lives.
class TBVNONPARA_API ScratchSheet {
 public:
    /// Under this name, or with a number behind it when there is such a sheet.
    ScratchSheet(const workbook::EmbeddedApplication& application, std::string_view name);
    ScratchSheet(const ScratchSheet&) = delete;
    ScratchSheet& operator=(const ScratchSheet&) = delete;
    ~ScratchSheet();

    /// Puts cells into a column from its first row on, below a label where there is one.
    void put(Index column, const std::optional<CellValue>& label, std::span<const CellValue> cells);

    /// "Sides!A1:A9".
    [[nodiscard]] std::string address(const Rectangle& cells) const;
    /// The address as it stands in a report, and the one that the report shall show.
    [[nodiscard]] ShownAddress shownAs(const Rectangle& cells, std::string shown) const;

 private:
    std::shared_ptr<workbook::Sheet> m_Sheet;
};

}  // namespace TBVNonPara::analysis
