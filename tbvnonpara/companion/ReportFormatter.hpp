#pragma once

#include "tbvnonpara/host/Range.hpp"

namespace TBVNonPara {

/// The look of a report: three operations on a block of cells.
class ReportFormatter {
 public:
    virtual ~ReportFormatter() = default;

    /// Headings of a table: bold over a thin line; with the flag True the outer frame of the finished table.
    virtual void FormatTable(const RangeRef& range, bool flag) const = 0;
    /// Numbers of a table's body.
    virtual void FormatBody(const RangeRef& range, bool flag) const = 0;
    /// A title.
    virtual void FormatTitle(const RangeRef& range, bool flag) const = 0;
};

/// The style of the report sheet.
class ReportStyle {
 public:
    virtual ~ReportStyle() = default;

    [[nodiscard]] virtual Integer GetInteriorColorIndex() const = 0;
};

/// The constants of the formatting library.
struct FormattingConstants {
    HorizontalAlignment HeadingAlignment = AlignCentreAcrossSelection;
    HorizontalAlignment CountsAlignment = AlignCentre;
    PasteKind ReportPaste = PasteKind::All;
};

}  // namespace TBVNonPara
