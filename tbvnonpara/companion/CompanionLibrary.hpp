#pragma once

#include <functional>

#include "tbvnonpara/companion/ArrayUtility.hpp"
#include "tbvnonpara/companion/ContingencyAnalysis.hpp"
#include "tbvnonpara/companion/DataCheck.hpp"
#include "tbvnonpara/companion/ReportFormatter.hpp"
#include "tbvnonpara/host/WorksheetHost.hpp"

namespace TBVNonPara {

/// What an adapter hands to clsNonPara: the application object and a factory for each component.
struct CompanionLibrary {
    ObjectRef<WorksheetHost> application;
    std::function<ObjectRef<ArrayUtility>()> createArrayUtility;
    std::function<ObjectRef<DataCheck>()> createDataCheck;
    std::function<ObjectRef<ReportFormatter>()> createReportFormatter;
    std::function<ObjectRef<ReportStyle>()> createReportStyle;
    std::function<ObjectRef<ContingencyAnalysis>()> createContingencyAnalysis;
    FormattingConstants constants;
};

/// The project's own components on the given application.
[[nodiscard]] CompanionLibrary ownCompanions(ObjectRef<WorksheetHost> application);

}  // namespace TBVNonPara
