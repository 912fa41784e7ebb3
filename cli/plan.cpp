#include "cli/plan.hpp"

#include <cstdio>
#include <fmt/format.h>

#include "tbvnonpara/core/display_width.hpp"
#include "tbvnonpara/json/values.hpp"
#include "tbvnonpara/rendering/json_report.hpp"
#include "tbvnonpara/rendering/output.hpp"

namespace TBVNonPara::cli {

namespace {

std::string inJson(const Arguments& arguments, const analysis::ChosenRanges& chosen,
                   const reshaping::Account& account) {
    const auto address = [](const std::string& text) { return text.empty() ? "null" : textInJson(text); };
    return fmt::format(
        "{{\n  \"test\": {},\n  \"ranges\": {{\"y\": {}, \"x\": {}, \"by\": {}, \"block\": {}, \"headers\": "
        "{}}}{}\n}}\n",
        textInJson(arguments.test->name), address(chosen.y), address(chosen.x), address(chosen.by),
        address(chosen.block), chosen.headers, rendering::accountInJson(account));
}

std::string inText(const Arguments& arguments, const analysis::ChosenRanges& chosen,
                   const analysis::TestData& data) {
    std::string lines = fmt::format("{}\n{}\n", arguments.test->summary, escaped(chosen.note));
    if (chosen.by.empty()) {
        lines += "values: " + escaped(reshaping::sizesOf(data.account()->groups)) + '\n';
    }
    for (const std::string& note : data.notes()) {
        lines += escaped(note) + '\n';
    }
    return lines;
}

}  // namespace

void printPlan(const Arguments& arguments, const analysis::ChosenRanges& chosen,
               const analysis::TestData& data) {
    rendering::Output output(stdout);
    output.write(arguments.format == OutputFormat::Json ? inJson(arguments, chosen, *data.account())
                                                        : inText(arguments, chosen, data));
    output.finish();
}

}  // namespace TBVNonPara::cli
