#include "tbvnonpara/files/saving/sheet_rows.hpp"

#include <algorithm>
#include <utility>

#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/files/file_values.hpp"
#include "tbvnonpara/files/saving/cell_text.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

bool isSubscript(const CellFormat& format, std::int32_t position) {
    return std::ranges::any_of(format.subscripts, [=](const CharacterRun& run) {
        return position >= run.start && position < run.start + run.length;
    });
}

bool keepsBlanks(std::string_view text) {
    return xmlBlanks.find(text.front()) != std::string_view::npos ||
           xmlBlanks.find(text.back()) != std::string_view::npos ||
           text.find('\n') != std::string_view::npos || text.find("  ") != std::string_view::npos;
}

void requireCalculated(CellError error, const Sheet& sheet, Index row, Index column) {
    if (error == uncalculated || error == unreadable) {
        const bool formula = error == uncalculated;
        refuse(quotedSheetName(sheet.name()) + '!' + plainAddress(row, column) +
               (formula ? " holds a formula without a result" : " holds a value that cannot be read") +
               ", which a new workbook cannot take over; " +
               (formula ? "calculate and save the data first." : "correct it in the data first."));
    }
}

}  // namespace

SheetRows::SheetRows(const Sheet& sheet, const Rectangle& area, StylePart& styles, std::string prefix)
    : m_Sheet(sheet),
      m_Area(area),
      m_Styles(styles),
      m_Prefix(std::move(prefix)),
      m_Open('<' + m_Prefix + "v>"),
      m_Close("</" + m_Prefix + "v>") {
    for (Index column = area.left; column <= area.right; ++column) {
        m_Letters.push_back(columnLetters(column));
    }
}

std::size_t SheetRows::styleOf(const CellFormat& format) {
    // Equal formats of one store are one object.
    const auto known = m_KnownStyles.find(&format);
    return known != m_KnownStyles.end()
               ? known->second
               : m_KnownStyles.emplace(&format, m_Styles.styleOf(format)).first->second;
}

void SheetRows::appendRows(Index first, Index last, std::string& xml) {
    std::string cells;
    for (Index row = first; row <= last; ++row) {
        cells.clear();
        appendCells(row, cells);
        if (!cells.empty()) {
            xml += '<' + m_Prefix + "row r=\"" + std::to_string(row) + "\">";
            xml += cells;
            xml += "</" + m_Prefix + "row>";
        }
    }
}

void SheetRows::appendCells(Index row, std::string& xml) {
    const std::string number = std::to_string(row);
    for (Index column = m_Area.left; column <= m_Area.right; ++column) {
        appendCell(row, column, number, xml);
    }
}

void SheetRows::appendCell(Index row, Index column, std::string_view rowNumber, std::string& xml) {
    const CellValue& value = m_Sheet.value(row, column);
    const std::size_t style = styleOf(m_Sheet.format(row, column));
    if (isEmpty(value) && style == 0) {
        return;
    }
    xml.append("<").append(m_Prefix).append("c r=\"");
    xml.append(m_Letters[static_cast<std::size_t>(column - m_Area.left)]).append(rowNumber).append("\"");
    if (style != 0) {
        xml.append(" s=\"").append(std::to_string(style)).append("\"");
    }
    if (isEmpty(value)) {
        xml += "/>";
        return;
    }
    appendValue(value, row, column, xml);
    xml.append("</").append(m_Prefix).append("c>");
}

void SheetRows::appendValue(const CellValue& value, Index row, Index column, std::string& xml) const {
    if (const auto* number = std::get_if<double>(&value)) {
        xml.append(">").append(m_Open);
        appendNumber(*number, xml);
        xml.append(m_Close);
    } else if (const auto* truth = std::get_if<bool>(&value)) {
        xml.append(" t=\"b\">").append(m_Open).append(*truth ? "1" : "0").append(m_Close);
    } else if (const auto* error = std::get_if<CellError>(&value)) {
        requireCalculated(*error, m_Sheet, row, column);
        xml.append(" t=\"e\">").append(m_Open).append(displayText(*error)).append(m_Close);
    } else {
        const std::string& text = std::get<Text>(value).string();
        requireStorable(text, m_Sheet.name(), row, column);
        appendText(text, m_Sheet.format(row, column), xml);
    }
}

void SheetRows::appendText(const std::string& text, const CellFormat& format, std::string& xml) const {
    // In the cell itself, so that the part of shared texts stays the same bytes.
    xml.append(" t=\"inlineStr\"><").append(m_Prefix).append("is>");
    if (format.subscripts.empty()) {
        appendCharacters(text, xml);
    } else {
        appendRuns(text, format, xml);
    }
    xml.append("</").append(m_Prefix).append("is>");
}

void SheetRows::appendRuns(std::string_view text, const CellFormat& format, std::string& xml) const {
    std::int32_t position = 1;
    while (!text.empty()) {
        const bool subscript = isSubscript(format, position);
        std::size_t end = 0;
        while (end < text.size() && isSubscript(format, position) == subscript) {
            end += firstCharacters(text.substr(end), 1).size();
            position += 1;
        }
        xml.append("<").append(m_Prefix).append("r>");
        xml += m_Styles.runProperties(format.bold, subscript, m_Prefix);
        appendCharacters(text.substr(0, end), xml);
        xml.append("</").append(m_Prefix).append("r>");
        text.remove_prefix(end);
    }
}

void SheetRows::appendCharacters(std::string_view text, std::string& xml) const {
    xml.append("<").append(m_Prefix).append("t");
    // Without the attribute a reader may drop blanks at the ends and fold those inside.
    xml += !text.empty() && keepsBlanks(text) ? " xml:space=\"preserve\">" : ">";
    appendEscaped(text, xml);
    xml.append("</").append(m_Prefix).append("t>");
}

}  // namespace TBVNonPara::workbook
