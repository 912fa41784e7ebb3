#pragma once

#include <string_view>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/host/Worksheet.hpp"

namespace TBVNonPara {

/// The workbook with the sheet that reports are written on before they are placed: it has to be open, under
/// this name or its older one.
constexpr std::string_view scratchWorkbookName = "tbv2007.xlam";
/// The older name of that workbook.
constexpr std::string_view olderScratchWorkbookName = "Tabvance.xla";
/// The name of its sheet.
constexpr std::string_view scratchSheetName = "Results";

/// An open workbook: its worksheets by position, counted from 1, and by name. A worksheet that does not exist
/// is the host's error.
class TBVNONPARA_API Workbook {
 public:
    /// Hosts derive from this class.
    virtual ~Workbook() = default;

    /// How many worksheets there are.
    [[nodiscard]] virtual Long GetWorksheetsCount() const = 0;
    /// The worksheet at a position from 1 on; raises the host's error beyond the last.
    [[nodiscard]] virtual WorksheetRef GetWorksheets(Long position) const = 0;
    /// The worksheet of a name; raises the host's error for one that does not exist.
    [[nodiscard]] virtual WorksheetRef GetWorksheets(std::string_view name) const = 0;
    /// Makes it the active workbook.
    virtual void Activate() = 0;
};

}  // namespace TBVNonPara
