#pragma once

#include "tbvnonpara/companion/ContingencyAnalysis.hpp"
#include "tbvnonpara/core/object_ref.hpp"
#include "tbvnonpara/host/Application.hpp"

namespace TBVNonPara {

/// The project's own component. Probabilities are those of the application's worksheet functions.
[[nodiscard]] ObjectRef<ContingencyAnalysis> createContingencyAnalysis(ObjectRef<Application> application);

}  // namespace TBVNonPara
