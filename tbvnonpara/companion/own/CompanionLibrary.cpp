#include "tbvnonpara/companion/CompanionLibrary.hpp"

#include <utility>

#include "tbvnonpara/companion/own/array_utility.hpp"
#include "tbvnonpara/companion/own/contingency_analysis.hpp"
#include "tbvnonpara/companion/own/data_check.hpp"
#include "tbvnonpara/companion/own/report_formatter.hpp"
#include "tbvnonpara/companion/own/sheetless.hpp"

namespace TBVNonPara {

CompanionLibrary ownCompanions(ObjectRef<Application> application, std::size_t threads) {
    if (!application.isSet()) {
        application = sheetlessApplication();
    }
    CompanionLibrary companions;
    companions.application = application;
    companions.createArrayUtility = [threads] { return createArrayUtility(threads); };
    companions.createDataCheck = createDataCheck;
    companions.createReportFormatter = createReportFormatter;
    companions.createReportStyle = createReportStyle;
    companions.createContingencyAnalysis = [application = std::move(application)] {
        return createContingencyAnalysis(application);
    };
    return companions;
}

}  // namespace TBVNonPara
