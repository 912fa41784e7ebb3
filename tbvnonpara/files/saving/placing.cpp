#include "tbvnonpara/files/saving/placing.hpp"

#include <algorithm>
#include <utility>

#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/files/saving/cell_text.hpp"
#include "tbvnonpara/files/saving/column_widths.hpp"
#include "tbvnonpara/files/saving/package.hpp"
#include "tbvnonpara/files/saving/sheet_part.hpp"
#include "tbvnonpara/files/saving/workbook_part.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

void refuseSigned(const Package& package) {
    if (package.hasFolder("_xmlsignatures/")) {
        refuse("The workbook \"" + package.fileName() +
               "\" is signed, and a report in it would break the signature; save the report in a file of its "
               "own.");
    }
}

/// Adds the tables and pivot tables that reach into the area.
void findTables(const Package& package, const std::string& sheet, const Rectangle& area,
                Obstacles& obstacles) {
    for (const XlsxRelationship& link : package.linksOf(sheet)) {
        if ((link.kind != "table" && link.kind != "pivotTable") || !package.has(link.target)) {
            continue;
        }
        XmlVisitor visitor;
        visitor.begin = [&](const XmlTag& tag, int depth) {
            const bool bearsArea = link.kind == "table" ? depth == 1 : tag.name() == "location";
            if (bearsArea && tag.attribute("ref") && overlap(areaOf(*tag.attribute("ref")), area)) {
                obstacles.push_back((link.kind == "table" ? "the table in " : "the pivot table in ") +
                                    std::string(*tag.attribute("ref")));
            }
        };
        walkXml(package.read(link.target), link.target, visitor);
    }
}

std::string areaText(const Placement& placement) {
    return quotedSheetName(placement.sheet->name()) + '!' + plainAddress(placement.area);
}

void placeOnSheet(Package& package, WorkbookPart& workbook, StylePart& styles, const Placement& placement) {
    const ListedSheet& sheet = workbook.sheet(placement.sheet->name());
    const SheetPart part(package.read(sheet.part), sheet.part, placement.area);
    Obstacles obstacles = part.obstacles();
    findTables(package, sheet.part, placement.area, obstacles);
    if (!obstacles.empty()) {
        refuse("The report needs " + areaText(placement) + ", and " + obstacles.front() +
               " would be broken; choose another place.");
    }
    if (!placement.overwrite && !part.firstOccupied().empty()) {
        refuse("The report needs " + areaText(placement) + ", and " + part.firstOccupied() +
               " holds something; clear these cells, choose another place or allow overwriting.");
    }
    SheetRows rows(*placement.sheet, placement.area, styles, part.prefix());
    package.put(sheet.part, part.finish(rows));
    workbook.forgetFormulas(sheet.sheetId, part.formulas());
}

std::string columnsOf(const Placement& placement) {
    std::string xml = "<cols>";
    Index column = placement.area.left;
    for (const double width : columnWidths(*placement.sheet, placement.area)) {
        const std::string number = std::to_string(column);
        xml.append("<col min=\"").append(number).append("\" max=\"").append(number).append("\" width=\"");
        appendNumber(width, xml);
        xml += R"(" customWidth="1"/>)";
        column += 1;
    }
    return xml + "</cols>";
}

std::string newSheet(const Placement& placement, StylePart& styles, bool strict) {
    std::string xml =
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
        "<worksheet xmlns=\"" +
        std::string(spreadsheetVocabulary(strict)) + "\"><dimension ref=\"" + plainAddress(placement.area) +
        "\"/>" + columnsOf(placement) + "<sheetData>";
    SheetRows(*placement.sheet, placement.area, styles, "")
        .appendRows(placement.area.top, placement.area.bottom, xml);
    return xml + "</sheetData></worksheet>";
}

}  // namespace

std::string placeIntoCopy(std::string workbook, const std::string& fileName,
                          const std::vector<Placement>& placements) {
    Package package(std::move(workbook), fileName);
    refuseSigned(package);
    WorkbookPart parts(package);
    const std::string stylePart = parts.stylePart();
    StylePart styles(package.has(stylePart) ? package.read(stylePart)
                                            : emptyStylePart(spreadsheetVocabulary(parts.isStrict())),
                     stylePart);
    for (const Placement& placement : placements) {
        if (placement.target == TargetSheet::Named) {
            placeOnSheet(package, parts, styles, placement);
        } else {
            parts.addSheet(placement.sheet->name(), newSheet(placement, styles, parts.isStrict()));
        }
    }
    if (styles.changed() || !package.has(stylePart)) {
        package.put(stylePart, styles.finish());
    }
    return package.finish();
}

}  // namespace TBVNonPara::workbook
