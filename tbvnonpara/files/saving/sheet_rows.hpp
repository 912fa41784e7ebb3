#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "tbvnonpara/files/saving/style_part.hpp"
#include "tbvnonpara/workbook/sheet.hpp"

namespace TBVNonPara::workbook {

/// Writes the cells of a block of a sheet as they stand in a sheet's part. Numbers bear the shortest digits
/// that read back as the same, texts stand in their cells.
class SheetRows {
 public:
    /// All must outlive the writer. The prefix is that of the part's elements.
    SheetRows(const Sheet& sheet, const Rectangle& area, StylePart& styles, std::string prefix);

    [[nodiscard]] const Rectangle& area() const noexcept { return m_Area; }
    [[nodiscard]] const std::string& prefix() const noexcept { return m_Prefix; }
    /// Adds the cells of one row; nothing for a row that neither holds nor shows anything.
    void appendCells(Index row, std::string& xml);
    /// Adds rows, those with nothing in them left out.
    void appendRows(Index first, Index last, std::string& xml);

 private:
    void appendCell(Index row, Index column, std::string_view rowNumber, std::string& xml);
    void appendValue(const CellValue& value, Index row, Index column, std::string& xml) const;
    void appendText(const std::string& text, const CellFormat& format, std::string& xml) const;
    void appendRuns(std::string_view text, const CellFormat& format, std::string& xml) const;
    void appendCharacters(std::string_view text, std::string& xml) const;
    std::size_t styleOf(const CellFormat& format);

    const Sheet& m_Sheet;
    Rectangle m_Area;
    StylePart& m_Styles;
    std::string m_Prefix;
    std::string m_Open;   ///< <v>
    std::string m_Close;  ///< </v>
    std::vector<std::string> m_Letters;
    std::unordered_map<const CellFormat*, std::size_t> m_KnownStyles;
};

}  // namespace TBVNonPara::workbook
