#include "tbvnonpara/rendering/details_html.hpp"

#include "tbvnonpara/core/shortest.hpp"
#include "tbvnonpara/details/page.hpp"
#include "tbvnonpara/rendering/details_quote.hpp"
#include "tbvnonpara/rendering/forest_plot.hpp"
#include "tbvnonpara/rendering/html_report.hpp"

namespace TBVNonPara::rendering {

namespace {

/// A number with the one behind it; one that a double does not hold is a text.
std::string cellInHtml(const DetailCell& cell) {
    const std::string shown = inHtml(shownDetail(cell));
    const auto* number = std::get_if<double>(&cell.value);
    const bool held = number != nullptr && std::holds_alternative<double>(sheetValue(cell));
    return held ? R"(<data value=")" + shortest(*number) + "\">" + shown + "</data>" : shown;
}

void addHeadings(const DetailTable& table, std::string& html) {
    html +=
        "<thead>\n<tr>"
        R"(<td class="b bb"></td>)";
    for (const std::string& heading : table.headings) {
        html += R"(<th scope="col" class="r b bb">)" + inHtml(heading) + "</th>";
    }
    html += "</tr>\n</thead>\n";
}

void addRow(const std::vector<DetailCell>& cells, std::size_t columns, std::string& html) {
    html += R"(<tr><th scope="row" class="l name">)" + cellInHtml(cells.front()) + "</th>";
    for (std::size_t column = 1; column < columns; ++column) {
        html += R"(<td class="r">)" + (column < cells.size() ? cellInHtml(cells[column]) : "") + "</td>";
    }
    html += "</tr>\n";
}

void addTable(const DetailTable& table, std::string& html) {
    if (table.rows.empty()) {
        return;
    }
    const std::string title = inHtml(table.title);
    html += R"(<div class="scroll" tabindex="0" role="region" aria-label=")" + title +
            "\">\n<table>\n<caption>" + title + "</caption>\n";
    addHeadings(table, html);
    html += "<tbody>\n";
    for (const std::vector<DetailCell>& cells : table.rows) {
        addRow(cells, table.headings.size() + 1, html);
    }
    html += "</tbody>\n</table>\n</div>\n";
}

void addLines(const std::vector<std::string>& lines, std::string_view tag, std::string& html) {
    for (const std::string& line : lines) {
        html += std::string(tag) + inHtml(line) + "</p>\n";
    }
}

}  // namespace

std::string detailsInHtml(const Details& details) {
    const DetailPage page = detailPage(details);
    std::string html =
        "<section class=\"details\" aria-labelledby=\"details\">\n<h2 id=\"details\">Details</h2>\n";
    addLines(page.words, "<p>", html);
    for (const DetailTable& table : page.tables) {
        addTable(table, html);
    }
    html += forestPlot(details);
    addLines(page.notes, "<p class=\"quiet\">", html);
    if (const std::string sentence = quotableSentence(details); !sentence.empty()) {
        html += "<h3>To quote</h3>\n<blockquote tabindex=\"0\">" + inHtml(sentence) + "</blockquote>\n";
    }
    return html + "</section>\n";
}

}  // namespace TBVNonPara::rendering
