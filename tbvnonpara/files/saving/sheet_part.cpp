#include "tbvnonpara/files/saving/sheet_part.hpp"

#include <charconv>
#include <utility>

#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/files/saving/cell_text.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

// worksheet > sheetData > row > c > v: an element counts only at its own depth, because extensions may repeat
// its name elsewhere.
constexpr int dataDepth = 2;
constexpr int rowDepth = 3;
constexpr int cellDepth = 4;
constexpr int contentDepth = 5;

Index rowIn(std::string_view text) noexcept {
    Index row = 0;
    std::from_chars(text.data(), text.data() + text.size(), row);
    return row;
}

}  // namespace

SheetPart::SheetPart(std::string text, std::string part, const Rectangle& area)
    : m_Text(std::move(text)), m_Part(std::move(part)), m_Area(area) {
    read();
    if (m_DataTagEnd == 0) {
        refuse("The part \"" + m_Part + "\" of the workbook is no worksheet.");
    }
}

void SheetPart::read() {
    XmlVisitor visitor;
    visitor.begin = [this](const XmlTag& tag, int depth) { begin(tag, depth); };
    visitor.end = [this](std::string_view, int depth, std::size_t from, std::size_t to) {
        end(depth, from, to);
    };
    walkXml(m_Text, m_Part, visitor);
}

void SheetPart::begin(const XmlTag& tag, int depth) {
    if (depth == dataDepth) {
        m_List = tag.name();
    }
    if (m_List != "sheetData" || depth <= dataDepth) {
        beginOther(tag, depth);
    } else if (depth == rowDepth) {
        beginRow(tag);
    } else if (depth == cellDepth) {
        beginCell(tag);
    } else if (depth == contentDepth) {
        beginContent(tag);
    }
}

void SheetPart::beginOther(const XmlTag& tag, int depth) {
    if (depth == 1) {
        m_Prefix = tag.prefix();
    } else if (depth == dataDepth && m_List == "sheetData") {
        m_DataTagBegin = tag.begin();
        m_DataTagEnd = tag.end();
        m_DataIsEmpty = tag.isEmpty();
        m_DataName = tag.qualifiedName();
    } else if (depth == dataDepth && m_List == "dimension" && tag.attribute("ref")) {
        m_Edits.push_back(
            withAttribute(tag, "ref", plainAddress(around(areaOf(*tag.attribute("ref")), m_Area))));
    } else if (tag.name() == "mergeCell" && tag.attribute("ref") &&
               overlap(areaOf(*tag.attribute("ref")), m_Area)) {
        m_Obstacles.push_back("the merged cells " + std::string(*tag.attribute("ref")));
    }
}

void SheetPart::beginRow(const XmlTag& tag) {
    const auto reference = tag.attribute("r");
    // The reference of a row or a cell may be left out: it then follows the one before.
    const Index number = reference ? rowIn(*reference) : m_Row + 1;
    if (number <= m_Row) {
        refuse("The rows of the part \"" + m_Part +
               "\" of the workbook are not in order; save the workbook anew "
               "first.");
    }
    m_Row = number;
    m_Column = 0;
    // Rows put in between would change what those without a number follow.
    if (!reference) {
        m_Edits.push_back({tag.behindName(), tag.behindName(), " r=\"" + std::to_string(number) + '"'});
    }
    if (number > m_Area.bottom && m_Behind == 0) {
        m_Behind = tag.begin();
    }
    if (number >= m_Area.top && number <= m_Area.bottom) {
        m_Rows.push_back({number,
                          tag.begin(),
                          std::string(tag.text()),
                          std::string(tag.qualifiedName()),
                          tag.end(),
                          tag.end(),
                          tag.isEmpty(),
                          {}});
    }
}

bool SheetPart::inBlock() const noexcept {
    return m_Row >= m_Area.top && m_Row <= m_Area.bottom && m_Column >= m_Area.left &&
           m_Column <= m_Area.right;
}

void SheetPart::beginCell(const XmlTag& tag) {
    auto reference = tag.attribute("r");
    m_Column = reference ? takeColumn(*reference) : m_Column + 1;
    if (m_Row >= m_Area.top && m_Row <= m_Area.bottom) {
        m_Rows.back().cells.push_back(
            {m_Column, tag.begin(), tag.end(), tag.behindName(), reference.has_value()});
    }
}

void SheetPart::beginContent(const XmlTag& tag) {
    const bool isFormula = tag.name() == "f";
    const std::string here = inBlock() ? plainAddress(m_Row, m_Column) : "";
    if (!here.empty() && (isFormula || tag.name() == "v" || tag.name() == "is")) {
        m_FirstOccupied = m_FirstOccupied.empty() ? here : m_FirstOccupied;
    }
    if (!isFormula) {
        return;
    }
    if (!here.empty()) {
        m_Formulas.push_back(here);
    }
    const std::string_view kind = tag.attribute("t").value_or("");
    const auto reach = tag.attribute("ref");
    if (!reach) {
        return;
    }
    // An array formula and a data table stand in one cell and fill their whole area. A shared formula is
    // spelled out in its first cell alone; the others would lose it.
    if ((kind == "array" || kind == "dataTable") && overlap(areaOf(*reach), m_Area)) {
        m_Obstacles.push_back((kind == "array" ? "the array formula of " : "the data table of ") +
                              std::string(*reach));
    } else if (kind == "shared" && !here.empty() && areaOf(*reach).cells() > 1) {
        m_Obstacles.push_back("the formula of " + here + ", which " + std::string(*reach) + " share,");
    }
}

void SheetPart::end(int depth, std::size_t begin, std::size_t end) {
    if (m_List != "sheetData") {
        return;
    }
    const bool inRows = m_Row >= m_Area.top && m_Row <= m_Area.bottom;
    if (depth == cellDepth && inRows) {
        m_Rows.back().cells.back().end = end;
    } else if (depth == rowDepth && inRows && !m_Rows.back().isEmpty) {
        m_Rows.back().contentEnd = begin;
    } else if (depth == dataDepth && m_Behind == 0) {
        m_Behind = begin;
    }
}

void SheetPart::replaceRow(const Row& row, SheetRows& rows, std::vector<Edit>& edits) const {
    std::string cells;
    rows.appendCells(row.number, cells);
    // The columns that a row reaches over are a hint that may be left out, but not be wrong.
    const Stretch spans = attributeStretch(row.tag, "spans");
    edits.push_back({row.begin + spans.begin, row.begin + spans.end, ""});
    if (row.isEmpty) {
        edits.push_back({row.tagEnd - 2, row.tagEnd, '>' + cells + "</" + row.name + '>'});
        return;
    }
    // The cells of a row must stand in the order of their columns.
    std::size_t place = row.contentEnd;
    for (const Cell& cell : row.cells) {
        if (cell.column > m_Area.right && place == row.contentEnd) {
            place = cell.begin;
        }
        if (cell.column >= m_Area.left && cell.column <= m_Area.right) {
            edits.push_back({cell.begin, cell.end, ""});
        } else if (!cell.hasReference) {
            edits.push_back(
                {cell.behindName, cell.behindName, " r=\"" + plainAddress(row.number, cell.column) + '"'});
        }
    }
    edits.push_back({place, place, cells});
}

std::string SheetPart::finish(SheetRows& rows) const {
    std::vector<Edit> edits = m_Edits;
    Index next = m_Area.top;
    const auto insertUpTo = [&](Index last, std::size_t place) {
        std::string text;
        rows.appendRows(next, last, text);
        edits.push_back({place, place, std::move(text)});
    };
    for (const Row& row : m_Rows) {
        insertUpTo(row.number - 1, row.begin);
        replaceRow(row, rows, edits);
        next = row.number + 1;
    }
    if (!m_DataIsEmpty) {
        insertUpTo(m_Area.bottom, m_Behind);
        return edited(m_Text, std::move(edits));
    }
    auto [text, behind] = aroundRows();
    rows.appendRows(next, m_Area.bottom, text);
    return text += behind;
}

std::pair<std::string, std::string> SheetPart::aroundRows() const {
    std::vector<Edit> edits = m_Edits;
    edits.push_back({m_DataTagBegin, m_Text.size(), '<' + m_DataName + '>'});
    return {edited(m_Text, std::move(edits)), "</" + m_DataName + '>' + m_Text.substr(m_DataTagEnd)};
}

}  // namespace TBVNonPara::workbook
