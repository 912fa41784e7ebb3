#pragma once

#include <string_view>

#include "tbvnonpara/host/Worksheet.hpp"

namespace TBVNonPara {

class Workbook {
 public:
    virtual ~Workbook() = default;

    [[nodiscard]] virtual Long GetWorksheetsCount() const = 0;
    [[nodiscard]] virtual WorksheetRef GetWorksheets(Long position) const = 0;
    [[nodiscard]] virtual WorksheetRef GetWorksheets(std::string_view name) const = 0;
    virtual void Activate() = 0;
};

}  // namespace TBVNonPara
