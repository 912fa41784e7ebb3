#include "tbvnonpara/files/xlsx/drawings.hpp"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>

#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/files/xlsx/cell_sizes.hpp"
#include "tbvnonpara/files/xlsx/relationships.hpp"
#include "tbvnonpara/files/xlsx/workbook.hpp"
#include "tbvnonpara/files/xml_reader.hpp"

namespace TBVNonPara::workbook {

namespace {

/// A corner of a drawing: a cell, counted from 0, and how far inside it.
struct Corner {
    double column = 0;
    double columnOffset = 0;
    double row = 0;
    double rowOffset = 0;
};

/// A drawing as it is written: between two corners, or from one corner on, or from the sheet's own, in a
/// size.
struct Anchor {
    Corner from;
    std::optional<Corner> to;
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    std::string_view kind;
    std::string name;
    bool hidden = false;
};

std::string_view kindNamed(std::string_view element) {
    if (element == "graphicFrame") {
        return "chart";
    }
    if (element == "pic") {
        return "picture";
    }
    const bool shape =
        element == "sp" || element == "grpSp" || element == "cxnSp" || element == "contentPart";
    return shape ? "shape" : "";
}

double numberIn(const XmlAttributes& attributes, std::string_view name) {
    return readAsNumber(attributes.find(name).value_or("0")).value_or(0);
}

class DrawingReader final : public XmlHandler {
 public:
    std::vector<Anchor> anchors;

    bool start(const XmlName& name, const XmlAttributes& attributes) override {
        const std::size_t depth = m_Path.size();
        if (depth == 1 && !name.local.ends_with("Anchor")) {
            return false;
        }
        if (depth == 1) {
            anchors.emplace_back();
        } else if (depth == 2) {
            startPlace(name.local, attributes);
        }
        if (depth >= 2) {
            startContent(name.local, attributes);
        }
        m_Path.emplace_back(name.local);
        m_Text.clear();
        return true;
    }

    void end() override {
        if (m_Path.size() == 4) {
            takeNumber();
        }
        m_Path.pop_back();
        m_Text.clear();
    }

    void text(std::string_view piece) override { m_Text += piece; }

 private:
    void startPlace(std::string_view element, const XmlAttributes& attributes) {
        Anchor& anchor = anchors.back();
        if (element == "to") {
            anchor.to.emplace();
        } else if (element == "pos") {
            anchor.left = numberIn(attributes, "x");
            anchor.top = numberIn(attributes, "y");
        } else if (element == "ext") {
            anchor.width = numberIn(attributes, "cx");
            anchor.height = numberIn(attributes, "cy");
        }
    }

    /// The first names are those of the whole: a group's, not of what it holds.
    void startContent(std::string_view element, const XmlAttributes& attributes) {
        Anchor& anchor = anchors.back();
        if (anchor.kind.empty()) {
            anchor.kind = kindNamed(element);
        }
        if (element == "cNvPr" && anchor.name.empty()) {
            anchor.name = attributes.find("name").value_or("");
            anchor.hidden = attributes.find("hidden") == "1" || attributes.find("hidden") == "true";
        }
    }

    void takeNumber() {
        Anchor& anchor = anchors.back();
        const bool to = m_Path[2] == "to";
        if (!to && m_Path[2] != "from") {
            return;
        }
        Corner& corner = to ? *anchor.to : anchor.from;
        const double number = readAsNumber(m_Text).value_or(0);
        for (const auto& [element, member] :
             {std::pair{"col", &Corner::column}, std::pair{"colOff", &Corner::columnOffset},
              std::pair{"row", &Corner::row}, std::pair{"rowOff", &Corner::rowOffset}}) {
            if (m_Path[3] == element) {
                corner.*member = number;
            }
        }
    }

    std::vector<std::string> m_Path;
    std::string m_Text;
};

Index onSheet(double position, Index most) {
    return static_cast<Index>(std::clamp(position, 1.0, static_cast<double>(most)));
}

/// A corner at the very beginning of a cell leaves that cell free.
Rectangle between(const Corner& from, const Corner& to) {
    Rectangle cells;
    cells.top = onSheet(from.row + 1, sheetRows);
    cells.left = onSheet(from.column + 1, sheetColumns);
    cells.bottom = std::max(cells.top, onSheet(to.row + (to.rowOffset > 0 ? 1 : 0), sheetRows));
    cells.right = std::max(cells.left, onSheet(to.column + (to.columnOffset > 0 ? 1 : 0), sheetColumns));
    return cells;
}

Rectangle sized(const Anchor& anchor, const SheetSizes& sizes) {
    Rectangle cells;
    cells.top = sizes.rows.at(onSheet(anchor.from.row + 1, sheetRows), anchor.top, sheetRows);
    cells.left = sizes.columns.at(onSheet(anchor.from.column + 1, sheetColumns), anchor.left, sheetColumns);
    cells.bottom = sizes.rows.at(onSheet(anchor.from.row + 1, sheetRows),
                                 anchor.top + anchor.from.rowOffset + anchor.height, sheetRows);
    cells.right = sizes.columns.at(onSheet(anchor.from.column + 1, sheetColumns),
                                   anchor.left + anchor.from.columnOffset + anchor.width, sheetColumns);
    return cells;
}

bool meet(const Rectangle& a, const Rectangle& b) {
    return a.top <= b.bottom && b.top <= a.bottom && a.left <= b.right && b.left <= a.right;
}

void appendDrawings(const Parts& parts, const std::string& sheet, const std::string& part,
                    std::vector<XlsxDrawing>& drawings) {
    DrawingReader reader;
    readXml(parts, part, reader);
    std::optional<SheetSizes> sizes;
    for (const Anchor& anchor : reader.anchors) {
        if (anchor.hidden) {
            continue;
        }
        if (!anchor.to && !sizes) {
            sizes = readXlsxSizes(parts, sheet);
        }
        const std::string kind = "the " + std::string(anchor.kind.empty() ? "drawing" : anchor.kind);
        drawings.push_back({anchor.name.empty() ? kind : kind + " \"" + anchor.name + '"',
                            anchor.to ? between(anchor.from, *anchor.to) : sized(anchor, *sizes)});
    }
}

}  // namespace

std::vector<XlsxDrawing> readXlsxDrawings(const Parts& parts, const std::string& sheet) {
    std::vector<XlsxDrawing> drawings;
    for (const XlsxRelationship& link : readRelationships(parts, sheet)) {
        if (link.kind == "drawing" && parts.has(link.target)) {
            appendDrawings(parts, sheet, link.target, drawings);
        }
    }
    return drawings;
}

std::vector<XlsxDrawing> xlsxDrawingsOver(const Parts& parts, std::string_view sheetName,
                                          const Rectangle& block) {
    std::vector<XlsxDrawing> over;
    for (const XlsxSheet& sheet : readXlsxWorkbook(parts).sheets) {
        if (sheet.name != sheetName || !sheet.hasCells) {
            continue;
        }
        std::ranges::copy_if(readXlsxDrawings(parts, sheet.part), std::back_inserter(over),
                             [&](const XlsxDrawing& drawing) { return meet(drawing.cells, block); });
    }
    return over;
}

}  // namespace TBVNonPara::workbook
