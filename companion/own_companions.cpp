#include <utility>

#include "companion/CompanionLibrary.hpp"
#include "companion/array_utility.hpp"
#include "companion/contingency_analysis.hpp"
#include "companion/data_check.hpp"
#include "companion/report_formatter.hpp"

namespace TBVNonPara {

CompanionLibrary ownCompanions(ObjectRef<WorksheetHost> application) {
    CompanionLibrary companions;
    companions.application = application;
    companions.createArrayUtility = createArrayUtility;
    companions.createDataCheck = createDataCheck;
    companions.createReportFormatter = createReportFormatter;
    companions.createReportStyle = createReportStyle;
    companions.createContingencyAnalysis = [application = std::move(application)] {
        return createContingencyAnalysis(application);
    };
    return companions;
}

}  // namespace TBVNonPara
