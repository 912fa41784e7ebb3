#pragma once

#include <functional>

#include "companion/ArrayUtility.hpp"
#include "companion/ContingencyAnalysis.hpp"
#include "companion/DataCheck.hpp"
#include "companion/ReportFormatter.hpp"
#include "host/WorksheetHost.hpp"

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
