#include "tbvnonpara/rendering/html_report.hpp"

#include <algorithm>

#include "tbvnonpara/core/shortest.hpp"
#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/rendering/html_style.hpp"
#include "tbvnonpara/rendering/pictures/picture_style.hpp"
#include "tbvnonpara/rendering/text_layout.hpp"

namespace TBVNonPara::rendering {

namespace {

/// The text of a cell with its subscripts marked.
std::string contents(const ReportBlock& report, Index row, Index column) {
    const CellValue& value = report.value(row, column);
    if (const auto* number = std::get_if<double>(&value)) {
        return "<data value=\"" + shortest(*number) + "\">" + inHtml(report.shown(row, column)) + "</data>";
    }
    const auto* text = std::get_if<Text>(&value);
    const auto& subscripts = report.format(row, column).subscripts;
    if (text == nullptr || subscripts.empty()) {
        return inHtml(report.shown(row, column));
    }
    std::string marked;
    std::size_t begin = 0;
    const std::string& characters = text->string();
    // Subscripts stand in texts of plain letters: a character is a byte.
    for (const workbook::CharacterRun& run : subscripts) {
        const std::size_t first = std::min(static_cast<std::size_t>(run.start - 1), characters.size());
        const std::size_t last = std::min(first + static_cast<std::size_t>(run.length), characters.size());
        marked += inHtml(characters.substr(begin, first - begin));
        marked += "<sub>" + inHtml(characters.substr(first, last - first)) + "</sub>";
        begin = last;
    }
    return marked + inHtml(characters.substr(begin));
}

/// One table of a report: the rows of a section below its title.
class HtmlTable {
 public:
    HtmlTable(const ReportBlock& report, Section rows) : m_Report(report), m_Rows(rows) {
        for (Index row = rows.first; row <= rows.last; ++row) {
            for (Index column = 1; column <= report.columns(); ++column) {
                m_LastColumn = isShown(row, column) ? std::max(m_LastColumn, column) : m_LastColumn;
            }
        }
        m_LastHeading = rows.first - 1;
        while (m_LastHeading < rows.last && !holdsNumber(m_LastHeading + 1)) {
            m_LastHeading += 1;
        }
        if (m_LastHeading == rows.last) {
            m_LastHeading = rows.first - 1;  // nothing but texts: no row heads the others
        }
    }

    /// The name is the caption without markup.
    void write(std::string_view caption, std::string_view name, Output& output) const {
        output.write(R"(<div class="scroll" tabindex="0" role="region" aria-label=")" + inHtml(name) +
                     "\">\n<table>\n");
        if (!caption.empty()) {
            output.write("<caption>" + std::string(caption) + "</caption>\n");
        }
        writeRows("thead", m_Rows.first, m_LastHeading, output);
        writeRows("tbody", m_LastHeading + 1, m_Rows.last, output);
        output.write("</table>\n</div>\n");
    }

 private:
    [[nodiscard]] bool isShown(Index row, Index column) const {
        return !isEmpty(m_Report.value(row, column));
    }

    [[nodiscard]] bool holdsNumber(Index row) const {
        for (Index column = 1; column <= m_Report.columns(); ++column) {
            if (std::holds_alternative<double>(m_Report.value(row, column))) {
                return true;
            }
        }
        return false;
    }

    void writeRows(std::string_view group, Index first, Index last, Output& output) const {
        if (last < first) {
            return;
        }
        output.write(std::string("<").append(group).append(">\n"));
        for (Index row = first; row <= last; ++row) {
            output.write("<tr>");
            for (Index column = 1; column <= m_LastColumn; ++column) {
                const Index end = std::min(lastOfSpan(m_Report, row, column), m_LastColumn);
                writeCell(row, column, end, output);
                column = end;
            }
            output.write("</tr>\n");
        }
        output.write(std::string("</").append(group).append(">\n"));
    }

    void writeCell(Index row, Index column, Index lastColumn, Output& output) const {
        const bool isHeading = row <= m_LastHeading && !m_Report.shown(row, column).empty();
        const bool namesRow = row > m_LastHeading && column == 1 && m_LastColumn > 1 &&
                              std::holds_alternative<Text>(m_Report.value(row, column));
        const std::string tag = isHeading || namesRow ? "th" : "td";
        std::string text = '<' + tag;
        if (isHeading) {
            text += lastColumn > column ? " scope=\"colgroup\"" : " scope=\"col\"";
        } else if (namesRow) {
            text += " scope=\"row\"";
        }
        if (lastColumn > column) {
            text += " colspan=\"" + std::to_string(lastColumn - column + 1) + '"';
        }
        text += " class=\"" + classesOf(row, column, lastColumn) + "\">" + contents(m_Report, row, column);
        output.write(text + "</" + tag + '>');
    }

    [[nodiscard]] std::string classesOf(Index row, Index column, Index lastColumn) const {
        const workbook::CellFormat& format = m_Report.format(row, column);
        const Side side = sideOf(m_Report, row, column, standsAlone(m_Report, row, column));
        std::string classes = side == Side::Left ? "l" : side == Side::Centre ? "c" : "r";
        classes += format.bold ? " b" : "";
        classes += format.borders.top ? " bt" : "";
        classes += format.borders.bottom ? " bb" : "";
        classes += format.borders.left ? " bl" : "";
        classes += m_Report.format(row, lastColumn).borders.right ? " br" : "";
        return classes;
    }

    const ReportBlock& m_Report;
    Section m_Rows;
    Index m_LastColumn = 1;
    Index m_LastHeading = 0;
};

/// Whether a row is a line of text: one cell, and not a number.
bool isLine(const ReportBlock& report, Index row) {
    const CellValue value = report.value(row, 1);
    const auto* text = std::get_if<Text>(&value);
    return text != nullptr && standsAlone(report, row, 1);
}

void writeLine(const ReportBlock& report, Index row, Output& output) {
    output.write(report.format(row, 1).bold ? "<p class=\"b\">" : "<p>");
    output.write(contents(report, row, 1) + "</p>\n");
}

/// The lines of a section, the last one above a table as its caption.
void writeSection(const ReportBlock& report, Section section, Output& output) {
    output.write("<section>\n");
    for (Index row = section.first; row <= section.last; ++row) {
        Index last = row;
        while (last < section.last && !isLine(report, last + 1)) {
            last += 1;
        }
        const bool captioned = isLine(report, row);
        if (captioned && last == row) {
            writeLine(report, row, output);
            continue;
        }
        HtmlTable(report, {captioned ? row + 1 : row, last})
            .write(captioned ? contents(report, row, 1) : "", captioned ? report.shown(row, 1) : "Table",
                   output);
        row = last;
    }
    output.write("</section>\n");
}

/// The report's name and what it was computed from.
void writeHead(const ReportBlock& report, Section section, Output& output) {
    output.write("<header>\n<h1>" + contents(report, section.first, 1) + "</h1>\n");
    for (Index row = section.first + 1; row <= section.last; ++row) {
        output.write("<p class=\"quiet\">" + contents(report, row, 1) + "</p>\n");
    }
    output.write("</header>\n");
}

}  // namespace

void writeHtml(const ReportBlock& report, std::string_view title, std::string_view picture, Output& output,
               std::string_view details) {
    output.write(
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
        "<link rel=\"icon\" href=\"data:,\">\n<title>" +
        inHtml(capitalised(title)) + " test</title>\n<style>\n:root { color-scheme: light dark; " +
        std::string(lightColours) + " }" + std::string(htmlStyle) + std::string(pictureStyle) +
        std::string(htmlMediaStyle) + std::string(details.empty() ? "" : htmlDetailsStyle) +
        "</style>\n</head>\n<body>\n<main>\n");
    bool begun = false;
    for (Index row = 1; row <= report.rows(); ++row) {
        const Section section = sectionAt(report, row);
        if (section.last < section.first) {
            continue;
        }
        begun ? writeSection(report, section, output) : writeHead(report, section, output);
        begun = true;
        row = section.last;
    }
    output.write(picture);
    output.write(details);
    output.write("</main>\n</body>\n</html>\n");
}

}  // namespace TBVNonPara::rendering
