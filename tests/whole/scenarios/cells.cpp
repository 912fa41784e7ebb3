#include "tests/whole/scenarios/cells.hpp"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "tbvnonpara/core/conversions.hpp"
#include "tests/whole/scenarios/addresses.hpp"

namespace TBVNonPara::Scenarios {

namespace {

constexpr std::string_view blanks = " \t";

CellValue readUnquoted(const std::string& text) {
    if (text == "-") {
        return Empty();
    }
    if (text == "TRUE" || text == "FALSE") {
        return text == "TRUE";
    }
    for (const CellError error :
         {CellError::Null, CellError::DivisionByZero, CellError::Value, CellError::Reference, CellError::Name,
          CellError::Number, CellError::NotAvailable}) {
        if (text == displayText(error)) {
            return error;
        }
    }
    if (const auto number = readAsNumber(text)) {
        return *number;
    }
    return Text(text);
}

/// The text of a quoted cell whose opening mark is at `position`; moves behind its closing mark.
std::string readQuoted(std::string_view line, std::size_t& position) {
    std::string text;
    for (position += 1; position < line.size(); ++position) {
        if (line[position] != '"') {
            text += line[position];
        } else if (position + 1 < line.size() && line[position + 1] == '"') {
            text += line[++position];
        } else {
            position += 1;
            return text;
        }
    }
    throw std::runtime_error("a quotation mark is not closed: " + std::string(line));
}

std::size_t endOfUnquoted(std::string_view line, std::size_t position) {
    return std::min(
        {line.find("  ", position), line.find('\t', position), line.find_last_not_of(blanks) + 1});
}

/// A text may run on over the empty cells to its right, as it does on a sheet; its own width then does not
/// count.
bool runsOn(const ValueGrid& cells, Long row, Long column) {
    for (Long c = column + 1; c <= cells.columns(); ++c) {
        if (!isEmpty(cells(row, c))) {
            return false;
        }
    }
    return true;
}

std::size_t columnWidth(const ValueGrid& cells, Long column) {
    std::size_t width = 6;
    for (Long row = 1; row <= cells.rows(); ++row) {
        if (!isEmpty(cells(row, column)) && !runsOn(cells, row, column)) {
            width = std::max(width, writeCell(cells(row, column)).size());
        }
    }
    return width;
}

std::string padded(std::string text, std::size_t width) {
    text.resize(std::max(text.size(), width), ' ');
    return text;
}

void trimEnd(std::string& line) {
    line.erase(line.find_last_not_of(blanks) + 1);
}

/// Columns found in the heading of a report, by where their letters stand.
std::size_t columnAt(const std::vector<WrittenCell>& headings, const WrittenCell& cell,
                     const std::string& line) {
    for (std::size_t column = 0; column < headings.size(); ++column) {
        if (headings[column].position == cell.position) {
            return column + 1;
        }
    }
    throw std::runtime_error("a cell does not begin under a column's letter: " + line);
}

}  // namespace

std::vector<WrittenCell> readCells(std::string_view line) {
    std::vector<WrittenCell> cells;
    std::size_t position = line.find_first_not_of(blanks);
    while (position != std::string_view::npos) {
        WrittenCell cell{{}, position};
        if (line[position] == '"') {
            cell.value = Text(readQuoted(line, position));
        } else {
            const std::size_t end = endOfUnquoted(line, position);
            cell.value = readUnquoted(std::string(line.substr(position, end - position)));
            position = end;
        }
        cells.push_back(std::move(cell));
        position = line.find_first_not_of(blanks, position);
    }
    return cells;
}

std::string writeCell(const CellValue& value) {
    if (isEmpty(value)) {
        return "-";
    }
    if (const bool* truth = std::get_if<bool>(&value)) {
        return *truth ? "TRUE" : "FALSE";
    }
    const Text* text = std::get_if<Text>(&value);
    if (text == nullptr) {
        return toText(value);
    }
    const std::vector<WrittenCell> asItStands = readCells(text->string());
    if (asItStands.size() == 1 && asItStands[0].position == 0 && asItStands[0].value == value) {
        return text->string();
    }
    std::string quoted = "\"";
    for (const char character : text->string()) {
        quoted += character == '"' ? "\"\"" : std::string(1, character);
    }
    return quoted + '"';
}

ValueGrid readData(const std::vector<std::string>& lines) {
    std::vector<std::vector<WrittenCell>> rows;
    std::size_t columns = 0;
    for (const std::string& line : lines) {
        rows.push_back(readCells(line));
        columns = std::max(columns, rows.back().size());
    }
    ValueGrid cells(Long(rows.size()), Long(columns));
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (std::size_t column = 0; column < rows[row].size(); ++column) {
            cells(Long(row + 1), Long(column + 1)) = rows[row][column].value;
        }
    }
    return cells;
}

ValueGrid readReport(const std::vector<std::string>& lines) {
    if (lines.empty()) {
        throw std::runtime_error("a report begins with the letters of its columns");
    }
    const std::vector<WrittenCell> headings = readCells(lines[0]);
    ValueGrid cells(Long(lines.size() - 1), Long(headings.size()));
    for (std::size_t row = 1; row < lines.size(); ++row) {
        std::vector<WrittenCell> written = readCells(lines[row]);
        if (written.empty()) {
            throw std::runtime_error("a line of a report lacks its row's number");
        }
        for (std::size_t i = 1; i < written.size(); ++i) {
            cells(Long(row), Long(columnAt(headings, written[i], lines[row]))) = written[i].value;
        }
    }
    return cells;
}

std::vector<std::string> writeReport(const ValueGrid& cells, Index row, Index column) {
    const std::size_t numbers = std::to_string(row + cells.rows().value() - 1).size() + 4;
    std::vector<std::string> lines(static_cast<std::size_t>(cells.rows().value()) + 1);
    lines[0] = std::string(numbers, ' ');
    for (Long r = 1; r <= cells.rows(); ++r) {
        lines[static_cast<std::size_t>(r.value())] =
            padded("  " + std::to_string(row + r.value() - 1), numbers);
    }
    for (Long c = 1; c <= cells.columns(); ++c) {
        const std::size_t width = columnWidth(cells, c) + 2;
        lines[0] += padded(columnLetters(column + c.value() - 1), width);
        for (Long r = 1; r <= cells.rows(); ++r) {
            const CellValue& value = cells(r, c);
            lines[static_cast<std::size_t>(r.value())] +=
                padded(isEmpty(value) ? "" : writeCell(value), width);
        }
    }
    std::ranges::for_each(lines, trimEnd);
    return lines;
}

}  // namespace TBVNonPara::Scenarios
