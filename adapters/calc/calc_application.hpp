#pragma once

#include <memory>

#include "adapters/calc/session.hpp"
#include "adapters/calc/worksheet_functions.hpp"
#include "tbvnonpara/companion/CompanionLibrary.hpp"
#include "tbvnonpara/host/Application.hpp"

namespace TBVNonPara::calc {

/// The spreadsheet that the add-in runs in.
class CalcApplication : public Application {
 public:
    explicit CalcApplication(std::shared_ptr<Session> session);

    [[nodiscard]] RangeRef GetRange(std::string_view address) const override;
    [[nodiscard]] RangeRef GetRange(const RangeRef& first, const RangeRef& last) const override;
    [[nodiscard]] WorkbookRef GetWorkbooks(std::string_view name) const override;
    [[nodiscard]] WorksheetRef AddWorksheets() override;
    void LetScreenUpdating(bool updating) override;
    [[nodiscard]] const WorksheetFunction& GetWorksheetFunction() const override { return m_Functions; }

 private:
    std::shared_ptr<Session> m_Session;
    CalcFunctions m_Functions;
};

/// What a request of the add-in works with. All requests build their reports in one scratch document, so that
/// there is one flag for all of them that says whether a run is going on.
[[nodiscard]] CompanionLibrary calcCompanions(const std::shared_ptr<Session>& session);

}  // namespace TBVNonPara::calc
