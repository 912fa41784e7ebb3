#pragma once

#include <string>
#include <variant>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"

namespace TBVNonPara {

/// A truth, a count, a figure, a word, or several of one kind.
using ResultValue =
    std::variant<bool, Long, double, std::string, Array<Long>, std::vector<double>, Array<CellValue>>;

/// A result and its name. Results that belong together share the part of the name before a dot:
/// "positive.median" and "positive.sum".
struct NamedResult {
    std::string name;   ///< as JSON has it: "u", "positive.median"
    ResultValue value;  ///< as the engine holds it
};

/// The results of a test by name, exactly as the engine holds them. Those that share a part of their names
/// stand together. The engine must have run this test; O(categories) for runs, O(groups) otherwise.
[[nodiscard]] TBVNONPARA_API std::vector<NamedResult> namedResults(TBVNPMethod method,
                                                                   const clsNonParaBO& engine);

/// The P that the report shows, or the first of several.
[[nodiscard]] TBVNONPARA_API double reportedP(TBVNPMethod method, const clsNonParaBO& engine);

}  // namespace TBVNonPara
