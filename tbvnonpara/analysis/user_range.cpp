#include "tbvnonpara/analysis/user_range.hpp"

#include <utility>

#include "tbvnonpara/core/a1.hpp"

namespace TBVNonPara::analysis {

std::string shownInReports(const workbook::Sheet& sheet, Areas areas) {
    if (sheet.turnedOver()) {
        for (Rectangle& area : areas) {
            area = {area.left, area.top, area.right, area.bottom};
        }
    }
    return quotedSheetName(sheet.name()) + '!' + absoluteAddress(areas);
}

ChosenRanges asInTheFile(const workbook::EmbeddedApplication& application, ChosenRanges chosen) {
    for (std::string* const address : {&chosen.y, &chosen.x, &chosen.by, &chosen.block}) {
        if (!address->empty()) {
            const UserRange range(application, *address);
            *address = withoutDollars(shownInReports(*range->sheet(), range->areas()));
        }
    }
    return chosen;
}

}  // namespace TBVNonPara::analysis
