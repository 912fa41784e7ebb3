#include "cli/json_report.hpp"

#include "cli/json_values.hpp"

namespace TBVNonPara::cli {

namespace {

using Json = nlohmann::ordered_json;

std::string onOneLineOfJson(const Json& value) {
    std::string text;
    appendJson(value, text);
    return text;
}

void writeRows(const ReportBlock& report, Output& output) {
    for (Index row = 1; row <= report.rows(); ++row) {
        std::string line = row == 1 ? "\n      [" : ",\n      [";
        for (Index column = 1; column <= report.columns(); ++column) {
            line += column == 1 ? "" : ", ";
            appendJson(jsonOf(report.value(row, column)), line);
        }
        output.write(line + ']');
    }
}

}  // namespace

void writeJson(const OfferedTest& test, const std::string& address, const ReportBlock& report,
               const Json& results, Output& output) {
    output.write("{\n  \"test\": " + onOneLineOfJson(std::string(test.name)) +
                 ",\n  \"report\": {\n    \"address\": " + onOneLineOfJson(address) + ",\n    \"rows\": [");
    writeRows(report, output);
    output.write("\n    ]\n  },\n  \"results\": " + onOneLineOfJson(results) + "\n}\n");
}

void writeJsonError(const Error& error, const Circumstances& circumstances, Output& output) {
    const Json details = {{"number", error.number()},
                          {"name", std::string(errorName(error.number()))},
                          {"source", error.source()},
                          {"description", explain(error, circumstances)}};
    output.write("{\"error\": " + onOneLineOfJson(details) + "}\n");
}

}  // namespace TBVNonPara::cli
