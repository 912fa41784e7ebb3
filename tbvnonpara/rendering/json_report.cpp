#include "tbvnonpara/rendering/json_report.hpp"

#include "tbvnonpara/rendering/json_values.hpp"

namespace TBVNonPara::rendering {

namespace {

void writeRows(const ReportBlock& report, Output& output) {
    for (Index row = 1; row <= report.rows(); ++row) {
        std::string line = row == 1 ? "\n      [" : ",\n      [";
        for (Index column = 1; column <= report.columns(); ++column) {
            line += column == 1 ? "" : ", ";
            line += cellInJson(report.value(row, column));
        }
        output.write(line + ']');
    }
}

/// A member that is there only when it says something.
std::string listOfWarnings(const std::vector<std::string>& warnings) {
    std::string text;
    for (const std::string& warning : warnings) {
        text += (text.empty() ? ",\n  \"warnings\": [" : ", ") + textInJson(warning);
    }
    return text.empty() ? text : text + ']';
}

}  // namespace

void writeJson(std::string_view test, std::string_view address, const ReportBlock& report,
               const std::vector<analysis::NamedResult>& results, Output& output,
               const std::vector<std::string>& warnings) {
    output.write("{\n  \"test\": " + textInJson(test) +
                 ",\n  \"report\": {\n    \"address\": " + textInJson(address) + ",\n    \"rows\": [");
    writeRows(report, output);
    output.write("\n    ]\n  },\n  \"results\": " + resultsInJson(results) + listOfWarnings(warnings) +
                 "\n}\n");
}

}  // namespace TBVNonPara::rendering
