#include "tbvnonpara/workbook/embedded_application.hpp"
#include "tests/whole/scenarios/library_host.hpp"

namespace TBVNonPara::Scenarios {

namespace {

/// The embedded workbook.
class WorkbookHost : public LibraryHost {
 public:
    explicit WorkbookHost(ObjectRef<workbook::EmbeddedApplication> application)
        : LibraryHost(application), m_Application(std::move(application)) {}

    void addSheet(std::string_view name, const ValueGrid& cells) override {
        m_Application->addSheet(name, cells);
    }

 private:
    ObjectRef<workbook::EmbeddedApplication> m_Application;
};

}  // namespace

std::unique_ptr<ScenarioHost> createScenarioHost() {
    return std::make_unique<WorkbookHost>(workbook::makeApplication());
}

}  // namespace TBVNonPara::Scenarios
