#pragma once

#include <string>

#include "tbvnonpara/core/a1.hpp"
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

/// "chickwts!$B$1:$B$72", as a report shows an address.
[[nodiscard]] inline std::string shownInReports(const std::string& sheet, const Areas& areas) {
    return quotedSheetName(sheet) + '!' + absoluteAddress(areas);
}

}  // namespace TBVNonPara::analysis
