#pragma once

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/host/Range.hpp"

namespace TBVNonPara {

/// The look of a report: three operations on a block of cells.
class TBVNONPARA_API ReportFormatter {
 public:
    /// Components derive from this class.
    virtual ~ReportFormatter() = default;

    /// Headings of a table: bold over a thin line; with the flag True the outer frame of the finished table.
    virtual void FormatTable(const RangeRef& range, bool flag) const = 0;
    /// Numbers of a table's body.
    virtual void FormatBody(const RangeRef& range, bool flag) const = 0;
    /// A title.
    virtual void FormatTitle(const RangeRef& range, bool flag) const = 0;
};

/// The style of the report sheet.
class TBVNONPARA_API ReportStyle {
 public:
    /// Components derive from this class.
    virtual ~ReportStyle() = default;

    /// The colour behind the cells of a report: an index of the host's palette, or noInteriorColour.
    [[nodiscard]] virtual Integer GetInteriorColorIndex() const = 0;
};

/// The constants of the formatting library.
struct FormattingConstants {
    HorizontalAlignment HeadingAlignment = AlignCentreAcrossSelection;  ///< of a heading over several columns
    HorizontalAlignment CountsAlignment = AlignCentre;                  ///< of counts in a table
    PasteKind ReportPaste = PasteKind::All;  ///< what is pasted at the output location
};

}  // namespace TBVNonPara
