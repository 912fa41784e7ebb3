#pragma once

#include "cli/arguments.hpp"
#include "tbvnonpara/analysis/test_data.hpp"

namespace TBVNonPara::cli {

/// Prints what would be tested: the ranges, the groups or columns with their sizes, and what is left out.
void printPlan(const Arguments& arguments, const analysis::ChosenRanges& chosen,
               const analysis::TestData& data);

}  // namespace TBVNonPara::cli
