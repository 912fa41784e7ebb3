#pragma once

#include <string>
#include <string_view>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/host/Range.hpp"

namespace TBVNonPara {

/// A worksheet and its cells. An address without a sheet's name lies on this sheet.
class TBVNONPARA_API Worksheet {
 public:
    /// Hosts derive from this class.
    virtual ~Worksheet() = default;

    /// The name as the user sees it, without quotation marks.
    [[nodiscard]] virtual std::string GetName() const = 0;
    /// The workbook that it is in.
    [[nodiscard]] virtual WorkbookRef GetParent() const = 0;

    /// All cells of the sheet; its rows and columns are the size of the sheet.
    [[nodiscard]] virtual RangeRef GetCells() const = 0;
    /// One cell, row and column counted from 1.
    [[nodiscard]] virtual RangeRef GetCells(Long row, Long column) const = 0;
    /// The range of an address, "A1:B9".
    [[nodiscard]] virtual RangeRef GetRange(std::string_view address) const = 0;
    /// The rectangle between two cells.
    [[nodiscard]] virtual RangeRef GetRange(const RangeRef& first, const RangeRef& last) const = 0;

    /// Gives the sheet another name; the host refuses one that is taken or that no sheet may have.
    virtual void LetName(std::string_view name) = 0;
    /// Moves the sheet behind another one.
    virtual void Move(const WorksheetRef& after) = 0;
    /// Makes it the active sheet.
    virtual void Activate() = 0;
    /// Takes the sheet out of its workbook. A host may ask its user first where the sheet holds something.
    virtual void Delete() = 0;
};

}  // namespace TBVNonPara
