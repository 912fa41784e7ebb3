#pragma once

#include <string>

#include "tbvnonpara/core/dates.hpp"
#include "tbvnonpara/files/file_cells.hpp"
#include "tbvnonpara/files/file_values.hpp"
#include "tbvnonpara/files/ods/text.hpp"
#include "tbvnonpara/files/xml_reader.hpp"

namespace TBVNonPara::workbook {

/// A cell as it is written.
struct OdsCell {
    /// Takes the attributes of a cell.
    void read(const XmlAttributes& attributes);

    std::string type;
    std::string value;
    bool hasString = false;  ///< the value stands in the attribute for texts
    bool formula = false;
    bool error = false;
    std::size_t columns = 1;
    OdsText text;
};

/// What a cell means. Raises the host's error for a value that its type cannot have.
[[nodiscard]] CellValue meaningOf(const OdsCell& cell, const DateSystem& dates, SharedTexts& texts);

/// How often a row or a cell stands there: at least once.
[[nodiscard]] std::size_t repetitions(std::string_view text) noexcept;

}  // namespace TBVNonPara::workbook
