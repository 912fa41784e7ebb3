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

}  // namespace

void writeJson(std::string_view test, std::string_view address, const ReportBlock& report,
               const std::vector<analysis::NamedResult>& results, Output& output) {
    output.write("{\n  \"test\": " + textInJson(test) +
                 ",\n  \"report\": {\n    \"address\": " + textInJson(address) + ",\n    \"rows\": [");
    writeRows(report, output);
    output.write("\n    ]\n  },\n  \"results\": " + resultsInJson(results) + "\n}\n");
}

}  // namespace TBVNonPara::rendering
