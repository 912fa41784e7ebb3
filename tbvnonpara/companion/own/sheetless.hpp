#pragma once

#include "tbvnonpara/host/Application.hpp"

namespace TBVNonPara {

/// An application without any sheet: it has the probabilities that tests ask of the worksheet functions, so
/// that an engine alone runs every test. Ranges, workbooks and counts of cells raise ObjectNotSet, and so do
/// ChiDist and FDist where the library was built without TBVNONPARA_STATISTICS.
[[nodiscard]] ObjectRef<Application> sheetlessApplication();

}  // namespace TBVNonPara
