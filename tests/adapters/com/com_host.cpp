#include "adapters/com/automation_application.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"
#include "tests/adapters/com/peer_application.hpp"
#include "tests/whole/scenarios/library_host.hpp"

namespace TBVNonPara::Scenarios {

namespace {

/// The embedded workbook, reached through automation: every call of the library crosses a late-bound
/// boundary.
class AutomationHost : public LibraryHost {
 public:
    explicit AutomationHost(const ObjectRef<workbook::EmbeddedApplication>& application)
        : LibraryHost(com::automationApplication(
              [application] { return Peer::peerApplication(application).as<IDispatch>(); })),
          m_Application(application) {}

    void addSheet(std::string_view name, const ValueGrid& cells) override {
        m_Application->addSheet(name, cells);
    }

 private:
    ObjectRef<workbook::EmbeddedApplication> m_Application;
};

}  // namespace

std::unique_ptr<ScenarioHost> createScenarioHost() {
    return std::make_unique<AutomationHost>(workbook::makeApplication());
}

}  // namespace TBVNonPara::Scenarios
