#include "tbvnonpara/rendering/json_report.hpp"

#include "tbvnonpara/details/json.hpp"
#include "tbvnonpara/json/values.hpp"

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

std::string member(std::string_view name, std::size_t number) {
    return textInJson(name) + ": " + std::to_string(number);
}

std::string memberOfDetails(const Details* details) {
    return details == nullptr ? "" : ",\n  \"details\": " + figureInJson(detailFigures(*details), 2);
}

}  // namespace

std::string missingInJson(const reshaping::Account& data) {
    return "\"missing\": {" + member("dropped", data.missing) + ", " + member("rows", data.units) +
           ", \"of\": " + textInJson(reshaping::nameOf(data.unit)) + '}';
}

std::string accountInJson(const reshaping::Account& data) {
    std::string groups;
    for (const reshaping::Group& group : data.groups) {
        groups += (groups.empty() ? "" : ", ") + ("{\"name\": " + textInJson(group.name)) + ", " +
                  member("n", group.size) + '}';
    }
    return ",\n  " + missingInJson(data) + ",\n  \"rows\": {" + member("all", data.rows) + ", " +
           member("unfulfilled", data.unfulfilled) + ", " + member("otherGroups", data.otherGroups) + ", " +
           member("unnamed", data.unnamed) + "},\n  \"groups\": [" + groups + ']';
}

void writeJson(std::string_view test, std::string_view address, const ReportBlock& report,
               const std::vector<NamedResult>& results, Output& output, const BesideReport& beside) {
    output.write("{\n  \"test\": " + textInJson(test) +
                 ",\n  \"report\": {\n    \"address\": " + textInJson(address) + ",\n    \"rows\": [");
    writeRows(report, output);
    output.write("\n    ]\n  },\n  \"results\": " + resultsInJson(results) +
                 (beside.data == nullptr ? "" : accountInJson(*beside.data)) +
                 memberOfDetails(beside.details) + listOfWarnings(beside.warnings) + "\n}\n");
}

}  // namespace TBVNonPara::rendering
