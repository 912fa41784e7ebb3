#pragma once

#include <string_view>

#include "tbvnonpara/host/Worksheet.hpp"

namespace TBVNonPara {

/// The workbook with the sheet that reports are written on before they are placed: it has to be open, under
/// this name or its older one.
constexpr std::string_view scratchWorkbookName = "tbv2007.xlam";
constexpr std::string_view olderScratchWorkbookName = "Tabvance.xla";
constexpr std::string_view scratchSheetName = "Results";

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
