#include "tbvnonpara/rendering/text_layout.hpp"

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>

#include "tbvnonpara/core/display_width.hpp"

namespace TBVNonPara::rendering {

namespace {

bool isCentredAcross(const ReportBlock& report, Index row, Index column) {
    return report.format(row, column).alignment == AlignCentreAcrossSelection;
}

bool isShown(const ReportBlock& report, Index row, Index column) {
    return !isEmpty(report.value(row, column));
}

std::size_t shownWidth(const ReportBlock& report, Index row, Index column, std::size_t mostOfText) {
    return displayWidth(withoutBlankEnd(shownShort(report, row, column, false, mostOfText)));
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

std::string shownShort(const ReportBlock& report, Index row, Index column, bool alone,
                       std::size_t mostOfText) {
    constexpr std::size_t mostAlone = 400;
    std::string text = report.shown(row, column);
    // No character takes more columns than bytes, and a number is never cut.
    if (text.size() <= mostOfText || !std::holds_alternative<Text>(report.value(row, column))) {
        return text;
    }
    return shortenedToWidth(text, alone ? mostAlone : mostOfText);
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

Side sideOf(const ReportBlock& report, Index row, Index column, bool alone) {
    const HorizontalAlignment alignment = report.format(row, column).alignment;
    const bool isText = std::holds_alternative<Text>(report.value(row, column));
    if (!isText) {
        return sideOfNumber(alignment);
    }
    if (alignment != AlignGeneral || alone) {
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
      m_BeginsWithLabels(beginsWithLabels(report, rows)) {
    for (Index row = rows.first; row <= rows.last; ++row) {
        measureRow(report, row, mostOfText);
    }
    std::vector<Index> all(m_Widths.size());
    std::iota(all.begin(), all.end(), Index{1});
    arrange(std::move(all), std::numeric_limits<std::size_t>::max());
    // A column that holds nothing but a part of a heading is one to be shown, too.
    std::ranges::transform(m_Widths, m_Placed, m_Widths.begin(),
                           [](std::size_t own, std::size_t placed) { return own == 0 ? placed : own; });
}

void TextLayout::measureRow(const ReportBlock& report, Index row, std::size_t mostOfText) {
    std::vector<Index> cells;
    for (Index column = 1; column <= report.columns(); ++column) {
        if (isShown(report, row, column)) {
            cells.push_back(column);
        }
    }
    if (cells.size() == 1 && !isCentredAcross(report, row, cells[0])) {
        m_OnlyCells[row] = cells[0];
        return;
    }
    for (const Index column : cells) {
        const std::size_t wanted = shownWidth(report, row, column, mostOfText);
        if (const Index last = lastOfSpan(report, row, column); last > column) {
            m_Headings[row].push_back({{column, last}, wanted});
        } else {
            m_Widths[at(column)] = std::max(m_Widths[at(column)], wanted);
        }
    }
}

Index TextLayout::onlyCell(Index row) const {
    const auto found = m_OnlyCells.find(row);
    return found == m_OnlyCells.end() ? 0 : found->second;
}

Run TextLayout::across(Index row, Index column) const {
    const auto found = m_Headings.find(row);
    const Heading* heading = found == m_Headings.end() ? nullptr : runAt(found->second, column);
    return heading == nullptr ? Run{column, column} : static_cast<const Run&>(*heading);
}

void TextLayout::Taken::add(std::size_t width) {
    widths += width;
    columns += width == 0 ? 0 : 1;
}

std::size_t TextLayout::placeOf(Index column) const {
    return static_cast<std::size_t>(std::ranges::lower_bound(m_Columns, column) - m_Columns.begin());
}

TextLayout::Taken TextLayout::taken(const Run& run) const {
    Taken taken;
    for (std::size_t i = placeOf(run.first); i < m_Columns.size() && m_Columns[i] <= run.last; ++i) {
        taken.add(m_Placed[i]);
    }
    return taken;
}

std::size_t TextLayout::width(Run run) const {
    return taken(run).total();
}

bool TextLayout::fits(const std::vector<Index>& columns, std::size_t most) const {
    Taken taken;
    for (const Index column : columns) {
        taken.add(m_Widths[at(column)]);
    }
    return taken.total() <= most;
}

void TextLayout::arrange(std::vector<Index> columns, std::size_t most) {
    m_Columns = std::move(columns);
    m_Placed.clear();
    Taken whole;
    for (const Index column : m_Columns) {
        m_Placed.push_back(m_Widths[at(column)]);
        whole.add(m_Placed.back());
    }
    for (const auto& [row, headings] : m_Headings) {
        const Heading* last = nullptr;
        for (const Index column : m_Columns) {
            const Heading* heading = runAt(headings, column);
            if (heading != nullptr && heading != last) {
                widen(*heading, whole, most);
            }
            last = heading;
        }
    }
    m_Starts.assign(1, 0);
    for (const std::size_t width : m_Placed) {
        m_Starts.push_back(m_Starts.back() + (width == 0 ? 0 : width + gap));
    }
}

void TextLayout::widen(const Heading& heading, Taken& whole, std::size_t most) {
    const std::size_t first = placeOf(heading.first);
    const std::size_t end = placeOf(heading.last + 1);
    Taken own = taken(heading);
    const std::size_t beside = whole.total() - own.total();
    const std::size_t wanted = std::min(heading.wanted, most - std::min(most, beside));
    // Columns to the right take what is missing first.
    for (std::size_t next = end; own.total() < wanted; next = next == first + 1 ? end : next - 1) {
        std::size_t& width = m_Placed[next - 1];
        own.columns += width == 0 ? 1 : 0;
        whole.columns += width == 0 ? 1 : 0;
        width += 1;
        own.widths += 1;
        whole.widths += 1;
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

}  // namespace TBVNonPara::rendering
