#include "tbvnonpara/companion/own/report_formatter.hpp"

namespace TBVNonPara {

namespace {

void frame(const RangeRef& range) {
    for (const BorderEdge edge : {BorderEdge::Left, BorderEdge::Top, BorderEdge::Bottom, BorderEdge::Right}) {
        range->LetBorder(edge, BorderLine::Thin);
    }
}

void headings(const RangeRef& range, BorderEdge edge) {
    range->LetFontBold(true);
    range->LetBorder(edge, BorderLine::Thin);
}

class QuietFormatter : public ReportFormatter {
 public:
    void FormatTable(const RangeRef& range, bool flag) const override {
        if (range->GetColumnsCount() == 1) {
            headings(range, BorderEdge::Right);
        } else if (flag) {
            frame(range);
        } else {
            headings(range, BorderEdge::Bottom);
        }
    }

    void FormatBody(const RangeRef& range, bool) const override {
        range->LetFontBold(false);
        range->LetNumberFormat("0.0000");
    }

    void FormatTitle(const RangeRef& range, bool) const override { range->LetFontBold(true); }
};

class PlainStyle : public ReportStyle {
 public:
    [[nodiscard]] Integer GetInteriorColorIndex() const override { return noInteriorColour; }
};

}  // namespace

ObjectRef<ReportFormatter> createReportFormatter() {
    return makeObject<QuietFormatter>();
}

ObjectRef<ReportStyle> createReportStyle() {
    return makeObject<PlainStyle>();
}

}  // namespace TBVNonPara
