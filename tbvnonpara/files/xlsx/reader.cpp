#include "tbvnonpara/files/xlsx/reader.hpp"

#include <algorithm>
#include <utility>

#include "tbvnonpara/files/xlsx/relationships.hpp"
#include "tbvnonpara/files/xlsx/shared_strings.hpp"
#include "tbvnonpara/files/xlsx/sheet.hpp"
#include "tbvnonpara/files/xlsx/workbook.hpp"

namespace TBVNonPara::workbook {

bool isXlsx(const Parts& parts) {
    if (parts.has("xl/workbook.xml")) {
        return true;
    }
    // The workbook's part may have any name; other documents of the family have other sheets.
    return parts.has("[Content_Types].xml") &&
           std::ranges::any_of(readRelationships(parts, ""), [&](const XlsxRelationship& relationship) {
               return relationship.kind == "officeDocument" && relationship.target.ends_with(".xml") &&
                      !relationship.target.starts_with("word/") && !relationship.target.starts_with("ppt/") &&
                      parts.has(relationship.target);
           });
}

FileContents readXlsx(const Parts& parts) {
    const XlsxWorkbook workbook = readXlsxWorkbook(parts);
    XlsxTexts texts;
    texts.dates = workbook.dates;
    if (workbook.sharedStrings && parts.has(*workbook.sharedStrings)) {
        texts.shared = readSharedStrings(parts, *workbook.sharedStrings);
    }
    FileContents contents;
    FileCells cells;
    for (std::size_t i = 0; i < workbook.sheets.size(); ++i) {
        const XlsxSheet& sheet = workbook.sheets[i];
        if (i == workbook.active) {
            contents.active = contents.sheets.size();
        }
        if (sheet.hasCells) {
            FileSheet& read = contents.sheets.emplace_back();
            read.name = sheet.name;
            read.hidden = sheet.hidden;
            cells.begin(read);
            readXlsxSheet(parts, sheet.part, texts, cells);
        }
    }
    showVisibleSheet(contents);
    return contents;
}

}  // namespace TBVNonPara::workbook
