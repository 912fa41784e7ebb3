#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/rectangle.hpp"
#include "tbvnonpara/workbook/cell_format.hpp"

namespace TBVNonPara::workbook {

/// The formats of a sheet: one for all cells, and for the columns that differ from it runs of rows with the
/// same format. A block of cells costs an entry a column however tall it is, the whole sheet costs one.
class TBVNONPARA_API FormatStore {
 public:
    using Change = std::function<void(CellFormat&)>;

    [[nodiscard]] const CellFormat& at(Index row, Index column) const;

    /// Changes the format of every cell of an area.
    void change(const Rectangle& area, const Change& change);
    void clear(const Rectangle& area);
    /// Replaces the formats from (row, column) on by those of an area of another store.
    void copy(const FormatStore& from, const Rectangle& area, Index row, Index column);

    /// Takes subscripts away: they belong to a text that is being replaced.
    void dropSubscripts(const Rectangle& area);

    /// How many entries the table holds.
    [[nodiscard]] std::size_t entries() const noexcept;

 private:
    using FormatId = std::uint32_t;
    /// First row of a run -> its format; the first run begins at row 1.
    using Runs = std::map<Index, FormatId>;
    using Replace = std::function<FormatId(FormatId)>;

    FormatId intern(const CellFormat& format);
    void replace(const Rectangle& area, const Replace& replacement);
    static void replaceRows(Runs& runs, Index top, Index bottom, const Replace& replacement);
    static void splitAt(Runs& runs, Index row);
    static void joinEqual(Runs& runs, Index top, Index bottom);

    std::vector<CellFormat> m_Formats{CellFormat{}};
    std::map<CellFormat, FormatId> m_Ids{{CellFormat{}, 0}};
    FormatId m_Everywhere = 0;
    std::map<Index, Runs> m_Columns;
    bool m_AnySubscripts = false;
};

}  // namespace TBVNonPara::workbook
