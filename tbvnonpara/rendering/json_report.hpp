#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/details/details.hpp"
#include "tbvnonpara/engine/named_results.hpp"
#include "tbvnonpara/rendering/output.hpp"
#include "tbvnonpara/rendering/report_block.hpp"
#include "tbvnonpara/reshaping/account.hpp"

namespace TBVNonPara::rendering {

/// What stands beside a report and its results.
struct BesideReport {
    const reshaping::Account* data = nullptr;  ///< what was left out, for data that were brought into form
    const Details* details = nullptr;          ///< the test in full, where it was asked for
    std::vector<std::string> warnings;         ///< sentences, in UTF-8
};

/// @cond
/// What is missing in the data as a member of an object: "missing": {"dropped": 37, ...}.
[[nodiscard]] TBVNONPARA_API std::string missingInJson(const reshaping::Account& data);

/// What was left out, each with what it is a part of, and the groups that remain, as further members.
[[nodiscard]] TBVNONPARA_API std::string accountInJson(const reshaping::Account& data);
/// @endcond

/// Writes a report as one JSON object: the test's name, the report's address and all its cells, the results
/// by name; groups and what was left out of the data, details and warnings, where there are any.
///
///     const auto results = namedResults(tbvNPMannU, request.engine());
///     writeJson("mann-whitney", "Results!$A$1:$D$9", report, results, output);
///
/// Numbers are the shortest that read back as the same; docs/details.md lists the names. O(cells). Raises
/// what Output raises.
TBVNONPARA_API void writeJson(std::string_view test, std::string_view address, const ReportBlock& report,
                              const std::vector<NamedResult>& results, Output& output,
                              const BesideReport& beside = {});

}  // namespace TBVNonPara::rendering
