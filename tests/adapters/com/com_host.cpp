#include "adapters/com/automation_application.hpp"
#include "tests/adapters/com/peer_application.hpp"
#include "tests/whole/scenarios/embedded_host.hpp"

namespace TBVNonPara::Scenarios {

/// Every call of the library on the workbook crosses a late-bound boundary.
std::unique_ptr<ScenarioHost> createScenarioHost() {
    const EmbeddedHost::Embedded workbook = workbook::makeApplication();
    return std::make_unique<EmbeddedHost>(workbook, com::automationApplication([workbook] {
                                              return Peer::peerApplication(workbook).as<IDispatch>();
                                          }));
}

}  // namespace TBVNonPara::Scenarios
