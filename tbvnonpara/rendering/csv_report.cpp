#include "tbvnonpara/rendering/csv_report.hpp"

#include <string_view>

#include "tbvnonpara/core/display_width.hpp"
#include "tbvnonpara/core/shortest.hpp"

namespace TBVNonPara::rendering {

namespace {

std::string quotedField(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) {
        return text;
    }
    std::string field = "\"";
    for (const char character : text) {
        field.append(character == '"' ? 2 : 1, character);
    }
    return field + '"';
}

/// A lone dash stands for no value and is none.
bool readsAsFormula(const std::string& text) {
    constexpr std::string_view beginnings = "=+-@\t\r\n";
    return text.size() > 1 && beginnings.find(text.front()) != std::string_view::npos;
}

}  // namespace

std::string csvField(const CellValue& value, const CsvFields& fields) {
    if (const auto* number = std::get_if<double>(&value)) {
        return shortest(*number);
    }
    if (isEmpty(value)) {
        return "";
    }
    std::string text = toText(value);
    if (fields.plainTexts && readsAsFormula(text)) {
        text.insert(text.begin(), '\'');
    }
    return quotedField(fields.visible ? escaped(text) : text);
}

void writeCsv(const ReportBlock& report, Output& output, const CsvFields& fields) {
    for (Index row = 1; row <= report.rows(); ++row) {
        for (Index column = 1; column <= report.columns(); ++column) {
            output.write(column == 1 ? "" : ",");
            output.write(csvField(report.value(row, column), fields));
        }
        output.write("\r\n");
    }
}

}  // namespace TBVNonPara::rendering
