#include "tbvnonpara/details/text.hpp"

#include <algorithm>

#include "tbvnonpara/core/display_width.hpp"

namespace TBVNonPara {

namespace {

/// Texts of a table, the names first.
using TextRow = std::vector<std::string>;

std::string repeated(std::string_view mark, std::size_t times) {
    std::string line;
    for (std::size_t i = 0; i < times; ++i) {
        line += mark;
    }
    return line;
}

/// Later lines stand two columns further in.
void addSentence(const std::string& sentence, std::size_t width, std::string& all) {
    constexpr std::size_t readable = 100;
    constexpr std::size_t narrowest = 20;
    const std::size_t most = width == 0 ? readable : std::clamp(width, narrowest, readable);
    const std::string text = escaped(sentence);
    const std::string first = folded(text, most).front();
    all += std::string(withoutBlankEnd(first)) + '\n';
    const std::size_t rest = text.find_first_not_of(' ', first.size());
    if (rest == std::string::npos) {
        return;
    }
    for (const std::string& line : folded(std::string_view(text).substr(rest), most - 2)) {
        all += "  " + std::string(withoutBlankEnd(line)) + '\n';
    }
}

std::vector<TextRow> textsOf(const DetailTable& table) {
    std::vector<TextRow> rows = {{""}};
    rows.front().insert(rows.front().end(), table.headings.begin(), table.headings.end());
    for (const std::vector<DetailCell>& cells : table.rows) {
        TextRow row(rows.front().size());
        std::ranges::transform(cells, row.begin(),
                               [](const DetailCell& cell) { return escaped(shownDetail(cell)); });
        rows.push_back(std::move(row));
    }
    return rows;
}

std::vector<std::size_t> widthsOf(const std::vector<TextRow>& rows) {
    std::vector<std::size_t> widths(rows.front().size());
    for (const TextRow& row : rows) {
        std::ranges::transform(row, widths, widths.begin(), [](const std::string& text, std::size_t width) {
            return std::max(width, displayWidth(text));
        });
    }
    return widths;
}

/// Names stand to the left, everything else to the right.
std::string lineOf(const TextRow& row, const std::vector<std::size_t>& widths) {
    std::string line = row[0] + std::string(widths[0] - displayWidth(row[0]), ' ');
    for (std::size_t column = 1; column < row.size(); ++column) {
        line += std::string(2 + widths[column] - displayWidth(row[column]), ' ') + row[column];
    }
    return std::string(withoutBlankEnd(line));
}

void addTable(const DetailTable& table, std::string& all) {
    if (table.rows.empty()) {
        return;
    }
    const std::vector<TextRow> rows = textsOf(table);
    const std::vector<std::size_t> widths = widthsOf(rows);
    std::size_t whole = 2 * (widths.size() - 1);
    for (const std::size_t width : widths) {
        whole += width;
    }
    all += '\n' + table.title + '\n' + lineOf(rows.front(), widths) + '\n' + repeated("─", whole) + '\n';
    for (std::size_t row = 1; row < rows.size(); ++row) {
        all += lineOf(rows[row], widths) + '\n';
    }
}

}  // namespace

std::string detailsText(const DetailPage& page, std::size_t width) {
    std::string all;
    constexpr std::string_view title = "Details";
    all += '\n' + std::string(title) + '\n' + repeated("═", title.size()) + '\n';
    for (const std::string& sentence : page.words) {
        addSentence(sentence, width, all);
    }
    for (const DetailTable& table : page.tables) {
        addTable(table, all);
    }
    all += "\n";
    for (const std::string& note : page.notes) {
        addSentence(note, width, all);
    }
    return all;
}

}  // namespace TBVNonPara
