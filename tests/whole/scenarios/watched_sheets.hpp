#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/whole/scenarios/addresses.hpp"
#include "tests/whole/scenarios/scenario.hpp"

namespace TBVNonPara::Scenarios {

/// The user's sheets, remembered before a request and compared after it: as much of each as the scenario
/// uses, and cells around that.
class WatchedSheets {
 public:
    WatchedSheets(const ScenarioHost& host, const Scenario& scenario);

    [[nodiscard]] std::vector<std::string> names() const;
    [[nodiscard]] std::string active() const { return activeSheet()->GetName(); }

    void remember() { m_Before = read(); }

    /// A line for each of the first cells outside a report that are not as they were remembered; without a
    /// report for the sheets that are new, too.
    [[nodiscard]] std::vector<std::string> changes(const std::optional<AddressArea>& report) const;

 private:
    using Sheets = std::map<std::string, ValueGrid>;

    [[nodiscard]] WorksheetRef activeSheet() const {
        return m_Host.application().GetRange("A1")->GetWorksheet();
    }
    [[nodiscard]] std::vector<WorksheetRef> sheets() const;
    [[nodiscard]] Sheets read() const;

    const ScenarioHost& m_Host;
    Rectangle m_Watched;
    Sheets m_Before;
};

}  // namespace TBVNonPara::Scenarios
