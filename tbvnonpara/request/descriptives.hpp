#pragma once

#include "tbvnonpara/engine/clsNonParaBO.hpp"
#include "tbvnonpara/report/clsNonParaOutput.hpp"

namespace TBVNonPara {

/// Writes the group descriptives of the engine's last run and a blank line below them.
void outputGroupDescriptives(clsNonParaOutput& report, const Labels& labels, const clsNonParaBO& engine,
                             TBVNPMethod method);

}  // namespace TBVNonPara
