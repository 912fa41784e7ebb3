#pragma once

#include <string_view>

#include "tbvnonpara/host/Worksheet.hpp"

namespace TBVNonPara {

/// An open workbook: its worksheets by position, counted from 1, and by name. A worksheet that does not exist
/// is the host's error.
class Workbook {
 public:
    virtual ~Workbook() = default;

    [[nodiscard]] virtual Long GetWorksheetsCount() const = 0;
    [[nodiscard]] virtual WorksheetRef GetWorksheets(Long position) const = 0;
    [[nodiscard]] virtual WorksheetRef GetWorksheets(std::string_view name) const = 0;
    virtual void Activate() = 0;
};

}  // namespace TBVNonPara
