#pragma once

#include "companion/ContingencyAnalysis.hpp"
#include "core/object_ref.hpp"
#include "host/WorksheetHost.hpp"

namespace TBVNonPara {

/// The project's own component. Probabilities are those of the application's worksheet functions.
[[nodiscard]] ObjectRef<ContingencyAnalysis> createContingencyAnalysis(ObjectRef<WorksheetHost> application);

}  // namespace TBVNonPara
