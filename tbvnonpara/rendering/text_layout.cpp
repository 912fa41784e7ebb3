#include "tbvnonpara/rendering/text_layout.hpp"

#include <algorithm>
#include <iterator>
#include <limits>
#include <numeric>

#include "tbvnonpara/rendering/display_width.hpp"

namespace TBVNonPara::rendering {

namespace {

bool isCentredAcross(const ReportBlock& report, Index row, Index column) {
    return report.format(row, column).alignment == AlignCentreAcrossSelection;
}

bool isShown(const ReportBlock& report, Index row, Index column) {
    return !isEmpty(report.value(row, column));
}

std::size_t shownWidth(const ReportBlock& report, Index row, Index column, std::size_t mostOfText) {
    return displayWidth(withoutBlankEnd(shownShort(report, row, column, mostOfText)));
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

/// The width of some columns side by side.
std::size_t together(const std::vector<std::size_t>& widths, const std::vector<Index>& columns) {
    std::size_t total = 0;
    for (const Index column : columns) {
        const std::size_t own = widths[static_cast<std::size_t>(column - 1)];
        total += own == 0 ? 0 : own + (total == 0 ? 0 : gap);
    }
    return total;
}

/// Whether a section's last row begins with a text over or beside numbers.
bool beginsWithLabels(const ReportBlock& report, Section rows) {
    for (Index column = 1; column <= report.columns(); ++column) {
        if (isShown(report, rows.last, column)) {
            return std::holds_alternative<Text>(report.value(rows.last, column)) &&
                   !standsAlone(report, rows.last, column);
        }
    }
    return false;
}

}  // namespace

std::string shownShort(const ReportBlock& report, Index row, Index column, std::size_t mostOfText) {
    constexpr std::size_t mostAlone = 400;
    std::string text = report.shown(row, column);
    // No character takes more columns than bytes, and a number is never cut.
    if (text.size() <= mostOfText || !std::holds_alternative<Text>(report.value(row, column))) {
        return text;
    }
    return shortened(text, standsAlone(report, row, column) ? mostAlone : mostOfText);
}

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

TextLayout::TextLayout(const ReportBlock& report, Section rows, std::size_t mostOfText)
    : m_Widths(static_cast<std::size_t>(report.columns())),
      m_Starts(m_Widths.size()),
      m_BeginsWithLabels(beginsWithLabels(report, rows)) {
    measureCells(report, rows, mostOfText);
    std::vector<Index> all(m_Widths.size());
    std::iota(all.begin(), all.end(), Index{1});
    arrange(all, std::numeric_limits<std::size_t>::max());
    // A column that holds nothing but a part of a heading is one to be shown, too.
    std::ranges::transform(m_Widths, m_Placed, m_Widths.begin(),
                           [](std::size_t own, std::size_t placed) { return own == 0 ? placed : own; });
}

void TextLayout::measureCells(const ReportBlock& report, Section rows, std::size_t mostOfText) {
    for (Index row = rows.first; row <= rows.last; ++row) {
        for (Index column = 1; column <= report.columns(); ++column) {
            if (!isShown(report, row, column) || standsAlone(report, row, column)) {
                continue;
            }
            const std::size_t wanted = shownWidth(report, row, column, mostOfText);
            if (const Index last = lastOfSpan(report, row, column); last > column) {
                m_Spans.push_back({column, last, wanted});
            } else {
                m_Widths[at(column)] = std::max(m_Widths[at(column)], wanted);
            }
        }
    }
}

bool TextLayout::fits(const std::vector<Index>& columns, std::size_t most) const {
    return together(m_Widths, columns) <= most;
}

void TextLayout::arrange(const std::vector<Index>& columns, std::size_t most) {
    m_Placed.assign(m_Widths.size(), 0);
    for (const Index column : columns) {
        m_Placed[at(column)] = m_Widths[at(column)];
    }
    for (const Span& span : m_Spans) {
        widen(span, columns, most);
    }
    std::size_t start = 0;
    for (std::size_t i = 0; i < m_Placed.size(); ++i) {
        m_Starts[i] = start;
        start += m_Placed[i] == 0 ? 0 : m_Placed[i] + gap;
    }
}

void TextLayout::widen(const Span& span, const std::vector<Index>& columns, std::size_t most) {
    std::vector<Index> own;
    std::ranges::copy_if(columns, std::back_inserter(own),
                         [&](Index column) { return column >= span.first && column <= span.last; });
    if (own.empty()) {
        return;
    }
    const std::size_t beside = together(m_Placed, columns) - together(m_Placed, own);
    const std::size_t wanted = std::min(span.wanted, most - std::min(most, beside));
    for (auto next = own.rbegin(); together(m_Placed, own) < wanted;
         next = next + 1 == own.rend() ? own.rbegin() : next + 1) {
        m_Placed[at(*next)] += 1;
    }
}

std::vector<std::vector<Index>> TextLayout::parts(std::size_t most) const {
    std::vector<std::vector<Index>> parts(1);
    std::size_t taken = 0;
    Index labels = 0;
    for (Index column = 1; column <= static_cast<Index>(m_Widths.size()); ++column) {
        const std::size_t own = m_Widths[at(column)];
        labels = labels == 0 && own > 0 && m_BeginsWithLabels ? column : labels;
        const bool empty = parts.back().size() == (labels != 0 && parts.size() > 1 ? 1U : 0U);
        if (own > 0 && !empty && taken + gap + own > most) {
            parts.emplace_back();
            taken = 0;
            if (labels != 0) {
                parts.back().push_back(labels);
                taken = m_Widths[at(labels)];
            }
        }
        taken += own == 0 ? 0 : own + (taken == 0 ? 0 : gap);
        if (own > 0) {
            parts.back().push_back(column);
        }
    }
    return parts;
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
