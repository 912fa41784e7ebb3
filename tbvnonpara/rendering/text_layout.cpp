#include "tbvnonpara/rendering/text_layout.hpp"

#include <algorithm>

#include "tbvnonpara/rendering/display_width.hpp"

namespace TBVNonPara::rendering {

namespace {

constexpr std::size_t gap = 2;

bool isCentredAcross(const ReportBlock& report, Index row, Index column) {
    return report.format(row, column).alignment == AlignCentreAcrossSelection;
}

bool isShown(const ReportBlock& report, Index row, Index column) {
    return !isEmpty(report.value(row, column));
}

std::size_t shownWidth(const ReportBlock& report, Index row, Index column) {
    return displayWidth(withoutBlankEnd(report.shown(row, column)));
}

Side sideOfNumber(HorizontalAlignment alignment) {
    switch (alignment) {
        case AlignLeft:
            return Side::Left;
        case AlignCentre:
        case AlignCentreAcrossSelection:
            return Side::Centre;
        default:
            return Side::Right;
    }
}

Side sideOfText(HorizontalAlignment alignment) {
    return alignment == AlignGeneral ? Side::Left : sideOfNumber(alignment);
}

}  // namespace

bool standsAlone(const ReportBlock& report, Index row, Index column) {
    for (Index other = 1; other <= report.columns(); ++other) {
        if (other != column && isShown(report, row, other)) {
            return false;
        }
    }
    return !isCentredAcross(report, row, column);
}

Index lastOfSpan(const ReportBlock& report, Index row, Index column) {
    Index last = column;
    if (isCentredAcross(report, row, column)) {
        while (last < report.columns() && isCentredAcross(report, row, last + 1) &&
               !isShown(report, row, last + 1)) {
            last += 1;
        }
    }
    return last;
}

Side sideOf(const ReportBlock& report, Index row, Index column) {
    const HorizontalAlignment alignment = report.format(row, column).alignment;
    const bool isText = std::holds_alternative<Text>(report.value(row, column));
    if (!isText) {
        return sideOfNumber(alignment);
    }
    if (alignment != AlignGeneral || standsAlone(report, row, column)) {
        return sideOfText(alignment);
    }
    // Headings and dashes stand near their numbers; a long column of texts is not walked to its end.
    constexpr Index farthest = 8;
    const Index last = std::min(report.rows(), row + farthest);
    for (Index below = row + 1; below <= last && isShown(report, below, column); ++below) {
        if (std::holds_alternative<double>(report.value(below, column))) {
            return sideOfNumber(report.format(below, column).alignment);
        }
    }
    return Side::Left;
}

Section sectionAt(const ReportBlock& report, Index row) {
    const auto isBlank = [&](Index candidate) {
        for (Index column = 1; column <= report.columns(); ++column) {
            if (isShown(report, candidate, column)) {
                return false;
            }
        }
        return true;
    };
    Section section{row, row - 1};
    while (section.last < report.rows() && !isBlank(section.last + 1)) {
        section.last += 1;
    }
    return section;
}

TextLayout::TextLayout(const ReportBlock& report, Section rows)
    : m_Widths(static_cast<std::size_t>(report.columns())), m_Starts(m_Widths.size()) {
    measureCells(report, rows);
    widenForSpans(report, rows);
    place();
}

void TextLayout::measureCells(const ReportBlock& report, Section rows) {
    for (Index row = rows.first; row <= rows.last; ++row) {
        for (Index column = 1; column <= report.columns(); ++column) {
            if (!isShown(report, row, column) || lastOfSpan(report, row, column) > column ||
                standsAlone(report, row, column)) {
                continue;
            }
            std::size_t& widest = m_Widths[at(column)];
            widest = std::max(widest, shownWidth(report, row, column));
        }
    }
}

void TextLayout::widenForSpans(const ReportBlock& report, Section rows) {
    for (Index row = rows.first; row <= rows.last; ++row) {
        for (Index column = 1; column <= report.columns(); ++column) {
            const Index last = isShown(report, row, column) ? lastOfSpan(report, row, column) : column;
            if (last == column) {
                continue;
            }
            const std::size_t wanted = shownWidth(report, row, column);
            for (Index next = last; width(column, last) < wanted; next = next == column ? last : next - 1) {
                m_Widths[at(next)] += 1;
            }
        }
    }
}

void TextLayout::place() {
    std::size_t start = 0;
    for (std::size_t i = 0; i < m_Widths.size(); ++i) {
        m_Starts[i] = start;
        start += m_Widths[i] == 0 ? 0 : m_Widths[i] + gap;
    }
}

std::size_t TextLayout::width(Index first, Index last) const {
    std::size_t total = 0;
    for (Index column = first; column <= last; ++column) {
        const std::size_t own = width(column);
        total += own == 0 ? 0 : own + (total == 0 ? 0 : gap);
    }
    return total;
}

}  // namespace TBVNonPara::rendering
