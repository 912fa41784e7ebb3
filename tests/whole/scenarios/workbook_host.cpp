#include "tests/whole/scenarios/embedded_host.hpp"

namespace TBVNonPara::Scenarios {

std::unique_ptr<ScenarioHost> createScenarioHost() {
    return std::make_unique<EmbeddedHost>(workbook::makeApplication());
}

}  // namespace TBVNonPara::Scenarios
