#include "cli/describe.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fmt/format.h>

#include "cli/shell_words.hpp"
#include "cli/terminal.hpp"
#include "tbvnonpara/analysis/suggested_tests.hpp"
#include "tbvnonpara/analysis/table_summary.hpp"
#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/display_width.hpp"
#include "tbvnonpara/core/shortest.hpp"
#include "tbvnonpara/json/values.hpp"
#include "tbvnonpara/rendering/csv_report.hpp"
#include "tbvnonpara/rendering/output.hpp"
#include "tbvnonpara/workbook/book.hpp"

namespace TBVNonPara::cli {

namespace {

using analysis::ColumnSummary;
using analysis::SuggestedTest;
using analysis::TableSummary;
using rendering::Output;

struct Description {
    std::vector<TableSummary> tables;
    std::vector<std::string> commands;
};

const OfferedTest& testOf(TBVNPMethod method) {
    for (const OfferedTest& test : offeredTests()) {
        if (test.method == method) {
            return test;
        }
    }
    raise(RuntimeError::SubscriptOutOfRange);
}

std::string wordFor(const std::optional<char>& character) {
    if (!character) {
        return "";
    }
    return *character == '\t' ? "tab" : *character == ' ' ? "space" : std::string(1, *character);
}

std::string_view wordFor(workbook::Encoding encoding) noexcept {
    switch (encoding) {
        case workbook::Encoding::Latin1:
            return "latin1";
        case workbook::Encoding::Windows1252:
            return "windows-1252";
        case workbook::Encoding::Utf8:
            break;
    }
    return "";
}

/// Joined by commas; a word that holds one stands in quotes.
std::string listOf(const std::vector<std::string>& words) {
    std::string list;
    for (const std::string& word : words) {
        const bool quoted = word.find(',') != std::string::npos;
        list += (list.empty() ? "" : ",") + (quoted ? '"' + word + '"' : word);
    }
    return list;
}

/// What was said about reading the file holds for its tests, too.
std::string commandFor(const SuggestedTest& test, const Arguments& arguments) {
    std::vector<std::string> words = {std::string(testOf(test.method).name), arguments.file};
    const auto add = [&](const char* option, std::string_view value) {
        if (!value.empty()) {
            words.insert(words.end(), {option, std::string(value)});
        }
    };
    add("--sheet", arguments.sheet);
    add("--delimiter", wordFor(arguments.delimiter));
    add("--decimal", wordFor(arguments.decimal));
    add("--thousands", wordFor(arguments.thousands));
    add("--encoding", wordFor(arguments.encoding));
    add("--comment", arguments.comment);
    if (arguments.transpose) {
        words.emplace_back("--transpose");
    }
    if (arguments.headers) {
        words.emplace_back(*arguments.headers ? "--headers" : "--no-headers");
    }
    add("--na", listOf(arguments.missingWords));
    add("--y", test.y);
    add("--x", test.x);
    add("--by", test.by);
    add("--block", test.block);
    add("--missing", test.omitMissing ? "omit" : "");
    add("--cut", test.cut ? "median" : "");
    return asTyped({words.begin(), words.end()});
}

Description descriptionOf(const workbook::EmbeddedApplication& application, const Arguments& arguments) {
    Description description;
    const auto active = application.activeSheet();
    for (const auto& sheet : application.activeBook()->sheets()) {
        if (!arguments.sheet.empty() && sheet != active) {
            continue;
        }
        description.tables.push_back(summaryOf(*sheet, arguments));
        if (sheet == active) {
            for (const SuggestedTest& test : suggestedTests(*sheet, description.tables.back(), arguments)) {
                description.commands.push_back(commandFor(test, arguments));
            }
        }
    }
    return description;
}

constexpr std::array<std::string_view, 9> headings = {"column",   "header", "kind",   "count", "missing",
                                                      "distinct", "min",    "median", "max"};

CellValue orNone(const std::optional<double>& number) {
    return number ? CellValue(*number) : CellValue();
}

std::vector<CellValue> rowOf(const ColumnSummary& column) {
    return {Text(columnLetters(column.number)),
            column.header.empty() ? CellValue() : Text(column.header),
            Text(nameOf(column.kind)),
            static_cast<double>(column.values),
            static_cast<double>(column.missing),
            static_cast<double>(column.different),
            orNone(column.least),
            orNone(column.median),
            orNone(column.greatest)};
}

std::string shownCell(const CellValue& value) {
    constexpr std::size_t most = 32;
    return shortenedToWidth(onOneLine(isEmpty(value) ? "" : toText(value)), most);
}

/// Texts to the left, numbers to the right.
std::string padded(const std::string& text, std::size_t width, bool number) {
    const std::string blanks(width - std::min(width, displayWidth(text)), ' ');
    return number ? blanks + text : text + blanks;
}

void writeTable(const TableSummary& table, Output& output) {
    std::vector<std::vector<std::string>> rows(1);
    for (const std::string_view heading : headings) {
        rows.front().emplace_back(heading);
    }
    for (const ColumnSummary& column : table.columns) {
        std::vector<std::string>& row = rows.emplace_back();
        for (const CellValue& value : rowOf(column)) {
            row.push_back(shownCell(value));
        }
    }
    std::vector<std::size_t> widths(headings.size());
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], displayWidth(row[i]));
        }
    }
    constexpr std::size_t firstNumber = 3;
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += (i == 0 ? "" : "  ") + padded(row[i], widths[i], i >= firstNumber);
        }
        output.write(std::string(withoutBlankEnd(line)) + '\n');
    }
}

void writeText(const Description& description, Output& output) {
    for (const TableSummary& table : description.tables) {
        output.write(fmt::format("{}: {} {}{}\n", escaped(table.sheet), table.rows,
                                 table.rows == 1 ? "row" : "rows",
                                 table.headers ? ", first row is headers" : ", no headers"));
        if (table.columns.empty()) {
            continue;
        }
        writeTable(table, output);
        output.write("\n");
    }
    output.write(description.commands.empty() ? "" : "Tests that its shape suggests:\n");
    for (const std::string& command : description.commands) {
        output.write("  " + escaped(command) + '\n');
    }
}

void writeCsv(const Description& description, const rendering::CsvFields& fields, Output& output) {
    std::string line = "sheet";
    for (const std::string_view heading : headings) {
        line.append(",").append(heading);
    }
    output.write(line + "\r\n");
    for (const TableSummary& table : description.tables) {
        for (const ColumnSummary& column : table.columns) {
            line = rendering::csvField(Text(table.sheet), fields);
            for (const CellValue& value : rowOf(column)) {
                line += ',' + rendering::csvField(value, fields);
            }
            output.write(line + "\r\n");
        }
    }
}

std::string columnInJson(const ColumnSummary& column) {
    const std::vector<CellValue> row = rowOf(column);
    std::string text;
    for (std::size_t i = 0; i < row.size(); ++i) {
        text += (i == 0 ? "{" : ", ") + textInJson(headings.at(i)) + ": " + cellInJson(row[i]);
    }
    return text + '}';
}

void writeJson(const Description& description, Output& output) {
    std::string tables;
    for (const TableSummary& table : description.tables) {
        std::string columns;
        for (const ColumnSummary& column : table.columns) {
            columns += (columns.empty() ? "\n      " : ",\n      ") + columnInJson(column);
        }
        tables += fmt::format("{}\n    {{\"sheet\": {}, \"rows\": {}, \"headers\": {}, \"columns\": [{}]}}",
                              tables.empty() ? "" : ",", textInJson(table.sheet), table.rows, table.headers,
                              columns);
    }
    std::string commands;
    for (const std::string& command : description.commands) {
        commands += (commands.empty() ? "\n    " : ",\n    ") + textInJson(command);
    }
    output.write(fmt::format("{{\n  \"sheets\": [{}],\n  \"commands\": [{}]\n}}\n", tables, commands));
}

/// For the shell's completion: what a name may be, a line each.
void writeNames(const workbook::EmbeddedApplication& application, const Arguments& arguments,
                Output& output) {
    if (arguments.names == "sheets") {
        for (const auto& sheet : application.activeBook()->sheets()) {
            output.write(sheet->name() + '\n');
        }
        return;
    }
    for (const std::string& header : analysis::headersOf(*application.activeSheet(), arguments)) {
        output.write(header + '\n');
    }
}

}  // namespace

void describe(const workbook::EmbeddedApplication& application, const Arguments& arguments) {
    Output output(stdout);
    if (!arguments.names.empty()) {
        writeNames(application, arguments, output);
        output.finish();
        return;
    }
    const Description description = descriptionOf(application, arguments);
    if (arguments.format == OutputFormat::Json) {
        writeJson(description, output);
    } else if (arguments.format == OutputFormat::Csv) {
        writeCsv(description, {arguments.safeCsv, writesToTerminal()}, output);
    } else {
        writeText(description, output);
    }
    output.finish();
}

}  // namespace TBVNonPara::cli
