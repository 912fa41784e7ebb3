#include "tbvnonpara/rendering/csv_report.hpp"

#include "tbvnonpara/rendering/display_width.hpp"
#include "tbvnonpara/rendering/numbers.hpp"

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

std::string field(const CellValue& value, bool visible) {
    if (const auto* number = std::get_if<double>(&value)) {
        return shortest(*number);
    }
    if (isEmpty(value)) {
        return "";
    }
    const std::string text = toText(value);
    return quotedField(visible ? escaped(text) : text);
}

}  // namespace

void writeCsv(const ReportBlock& report, Output& output, bool visible) {
    for (Index row = 1; row <= report.rows(); ++row) {
        for (Index column = 1; column <= report.columns(); ++column) {
            output.write(column == 1 ? "" : ",");
            output.write(field(report.value(row, column), visible));
        }
        output.write("\r\n");
    }
}

}  // namespace TBVNonPara::rendering
