#pragma once

#include <string>

#include "tbvnonpara/analysis/ranges.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/rectangle.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"
#include "tbvnonpara/workbook/sheet_range.hpp"

namespace TBVNonPara::analysis {

/// A range of the user's, as long as it is looked at.
class UserRange {
 public:
    UserRange(const workbook::EmbeddedApplication& application, const std::string& address)
        : m_Held(application.GetRange(address)) {}

    [[nodiscard]] const workbook::SheetRange& operator*() const { return workbook::ownRange(m_Held); }
    [[nodiscard]] const workbook::SheetRange* operator->() const { return &**this; }

 private:
    RangeRef m_Held;
};

/// "chickwts!$B$1:$B$72", as a report shows an address: where the cells stand in the user's file.
[[nodiscard]] TBVNONPARA_API std::string shownInReports(const workbook::Sheet& sheet, Areas areas);

/// The same ranges as a user types their addresses: "chickwts!B1:B72".
[[nodiscard]] TBVNONPARA_API ChosenRanges asInTheFile(const workbook::EmbeddedApplication& application,
                                                      ChosenRanges chosen);

}  // namespace TBVNonPara::analysis
