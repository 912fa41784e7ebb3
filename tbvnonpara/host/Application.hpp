#pragma once

#include <string_view>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/host/Workbook.hpp"
#include "tbvnonpara/host/WorksheetFunction.hpp"

namespace TBVNonPara {

/// The spreadsheet application: where everything that is asked of the sheet begins. A host implements this
/// class and what it leads to (Workbook, Worksheet, Range, WorksheetFunction). What holds between the two:
///
/// - Calls come one at a time, on the thread of the request, in the order in which the library makes them.
/// - What the host cannot do it throws as an Error with its own number and words; the library writes the
///   source. An empty reference in its place would be reported as ObjectNotSet.
/// - Rows, columns, areas and sheets count from 1. References stay good as long as they are held, also when
///   sheets are added or moved.
/// - A workbook "tbv2007.xlam" with a worksheet "Results" is open, whose cells belong to the library.
///
///     class MyApplication : public TBVNonPara::Application { ... };
///     clsNonPara request(ownCompanions(makeObject<MyApplication>()));
class TBVNONPARA_API Application {
 public:
    /// Hosts derive from this class.
    virtual ~Application() = default;

    /// The range of an address such as "Data!$A$1:$A$9" or "A1:A9,C1:C9"; without a sheet's name it lies on
    /// the active sheet.
    [[nodiscard]] virtual RangeRef GetRange(std::string_view address) const = 0;
    /// The rectangle between two cells of one sheet.
    [[nodiscard]] virtual RangeRef GetRange(const RangeRef& first, const RangeRef& last) const = 0;
    /// An open workbook by its file name.
    [[nodiscard]] virtual WorkbookRef GetWorkbooks(std::string_view name) const = 0;
    /// Adds a worksheet to the active workbook and makes it the active sheet.
    [[nodiscard]] virtual WorksheetRef AddWorksheets() = 0;
    /// Whether the screen follows what is written; off while a report is built. A host may ignore it.
    virtual void LetScreenUpdating(bool updating) = 0;
    /// The worksheet functions, which live as long as the application.
    [[nodiscard]] virtual const WorksheetFunction& GetWorksheetFunction() const = 0;
};

}  // namespace TBVNonPara
