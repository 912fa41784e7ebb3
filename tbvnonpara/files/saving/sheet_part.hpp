#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tbvnonpara/files/saving/sheet_rows.hpp"
#include "tbvnonpara/files/saving/xml_walk.hpp"

namespace TBVNonPara::workbook {

/// What stands in the way of a block of cells, in words: "the merged cells A1:B2".
using Obstacles = std::vector<std::string>;

/// A sheet's part, and in particular one block of it that other cells are to take the place of.
class SheetPart {
 public:
    SheetPart(std::string text, std::string part, const Rectangle& area);

    /// "x:", or nothing.
    [[nodiscard]] const std::string& prefix() const noexcept { return m_Prefix; }
    /// What cells cannot be put over: merged cells, formulas of several cells.
    [[nodiscard]] const Obstacles& obstacles() const noexcept { return m_Obstacles; }
    /// The first cell of the block that holds something; empty when none does.
    [[nodiscard]] const std::string& firstOccupied() const noexcept { return m_FirstOccupied; }
    /// The cells of the block that hold formulas.
    [[nodiscard]] const std::vector<std::string>& formulas() const noexcept { return m_Formulas; }

    [[nodiscard]] bool isEmpty() const noexcept { return m_DataIsEmpty; }
    /// What stands in front of and behind the rows of an empty sheet.
    [[nodiscard]] std::pair<std::string, std::string> aroundRows() const;

    /// The part with the block replaced by these rows.
    [[nodiscard]] std::string finish(SheetRows& rows) const;

 private:
    struct Cell {
        Index column = 0;
        std::size_t begin = 0;
        std::size_t end = 0;
        std::size_t behindName = 0;
        bool hasReference = false;
    };
    struct Row {
        Index number = 0;
        std::size_t begin = 0;
        std::string tag;
        std::string name;
        std::size_t tagEnd = 0;
        std::size_t contentEnd = 0;
        bool isEmpty = false;
        std::vector<Cell> cells;
    };

    void read();
    void begin(const XmlTag& tag, int depth);
    void end(int depth, std::size_t begin, std::size_t end);
    void beginRow(const XmlTag& tag);
    void beginCell(const XmlTag& tag);
    void beginContent(const XmlTag& tag);
    void beginOther(const XmlTag& tag, int depth);
    [[nodiscard]] bool inBlock() const noexcept;
    void replaceRow(const Row& row, SheetRows& rows, std::vector<Edit>& edits) const;

    std::string m_Text;
    std::string m_Part;
    Rectangle m_Area;
    std::string m_Prefix;

    std::string m_List;  ///< the child of the root that is being walked
    Index m_Row = 0;
    Index m_Column = 0;
    std::vector<Row> m_Rows;   ///< those of the block
    std::size_t m_Behind = 0;  ///< where the first row below the block begins
    std::size_t m_DataTagBegin = 0;
    std::size_t m_DataTagEnd = 0;
    std::string m_DataName;
    bool m_DataIsEmpty = false;
    std::vector<Edit> m_Edits;
    Obstacles m_Obstacles;
    std::string m_FirstOccupied;
    std::vector<std::string> m_Formulas;
};

}  // namespace TBVNonPara::workbook
