#include <algorithm>
#include <vector>

#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/workbook/host_error.hpp"
#include "tbvnonpara/workbook/sheet_range.hpp"

namespace TBVNonPara::workbook {

namespace {

/// The cells of an area along one of its edges.
Rectangle alongEdge(const Rectangle& area, BorderEdge edge) {
    switch (edge) {
        case BorderEdge::Left:
            return {area.top, area.left, area.bottom, area.left};
        case BorderEdge::Top:
            return {area.top, area.left, area.top, area.right};
        case BorderEdge::Bottom:
            return {area.bottom, area.left, area.bottom, area.right};
        case BorderEdge::Right:
            return {area.top, area.right, area.bottom, area.right};
    }
    refuse("A range has no edge with the number " + std::to_string(static_cast<int>(edge)) + ".");
}

/// The neighbours that share an edge with the area; off the sheet at its border.
Rectangle beyondEdge(const Rectangle& area, BorderEdge edge) {
    switch (edge) {
        case BorderEdge::Left:
            return {area.top, area.left - 1, area.bottom, area.left - 1};
        case BorderEdge::Top:
            return {area.top - 1, area.left, area.top - 1, area.right};
        case BorderEdge::Bottom:
            return {area.bottom + 1, area.left, area.bottom + 1, area.right};
        case BorderEdge::Right:
            break;
    }
    return {area.top, area.right + 1, area.bottom, area.right + 1};
}

BorderEdge opposite(BorderEdge edge) {
    switch (edge) {
        case BorderEdge::Left:
            return BorderEdge::Right;
        case BorderEdge::Top:
            return BorderEdge::Bottom;
        case BorderEdge::Bottom:
            return BorderEdge::Top;
        case BorderEdge::Right:
            break;
    }
    return BorderEdge::Left;
}

bool& side(Borders& borders, BorderEdge edge) {
    switch (edge) {
        case BorderEdge::Left:
            return borders.left;
        case BorderEdge::Top:
            return borders.top;
        case BorderEdge::Bottom:
            return borders.bottom;
        case BorderEdge::Right:
            break;
    }
    return borders.right;
}

/// The runs after the characters first to last became subscript or plain.
std::vector<CharacterRun> changedRuns(const std::vector<CharacterRun>& runs, std::int32_t first,
                                      std::int32_t last, bool subscript) {
    std::vector<CharacterRun> changed;
    for (const CharacterRun& run : runs) {
        const std::int32_t runLast = run.start + run.length - 1;
        if (subscript && run.start <= last + 1 && runLast >= first - 1) {
            first = std::min(first, run.start);
            last = std::max(last, runLast);
            continue;
        }
        if (run.start < first) {
            changed.push_back({run.start, std::min(runLast, first - 1) - run.start + 1});
        }
        if (runLast > last) {
            const std::int32_t start = std::max(run.start, last + 1);
            changed.push_back({start, runLast - start + 1});
        }
    }
    if (subscript) {
        changed.push_back({first, last - first + 1});
    }
    std::ranges::sort(changed);
    return changed;
}

}  // namespace

void SheetRange::changeFormat(const FormatStore::Change& change) {
    for (const Rectangle& area : m_Areas) {
        m_Sheet->formats().change(area, change);
    }
}

void SheetRange::LetNumberFormat(std::string_view format) {
    changeFormat([=](CellFormat& cell) { cell.numberFormat = format; });
}

void SheetRange::LetHorizontalAlignment(HorizontalAlignment alignment) {
    changeFormat([=](CellFormat& cell) { cell.alignment = alignment; });
}

void SheetRange::LetInteriorColorIndex(Integer index) {
    changeFormat([=](CellFormat& cell) { cell.interiorColour = index.value(); });
}

void SheetRange::LetFontBold(bool bold) {
    changeFormat([=](CellFormat& cell) { cell.bold = bold; });
}

void SheetRange::LetBorder(BorderEdge edge, BorderLine line) {
    if (line != BorderLine::None && line != BorderLine::Thin) {
        refuse("There is no border line with the number " + std::to_string(static_cast<int>(line)) + ".");
    }
    FormatStore& formats = m_Sheet->formats();
    for (const Rectangle& area : m_Areas) {
        formats.change(alongEdge(area, edge),
                       [=](CellFormat& cell) { side(cell.borders, edge) = line == BorderLine::Thin; });
        // The neighbour shares the edge: its line would still be seen.
        const Rectangle neighbours = beyondEdge(area, edge);
        if (line == BorderLine::None && neighbours.onSheet()) {
            formats.change(neighbours, [=](CellFormat& cell) { side(cell.borders, opposite(edge)) = false; });
        }
    }
}

void SheetRange::LetCharactersFontSubscript(Long start, Long length, bool subscript) {
    const CellValue value = m_Sheet->value(first().top, first().left);
    const auto* text = std::get_if<Text>(&value);
    if (m_Areas.size() > 1 || first().cells() != 1 || text == nullptr) {
        refuse("Characters can be made subscript in one cell that holds a text only, not in " +
               fullAddress() + ".");
    }
    if (start < Long(1) || length < Long(0)) {
        refuse("Characters count from 1 and their number is not negative: " + std::to_string(start.value()) +
               ", " + std::to_string(length.value()) + ".");
    }
    const std::int64_t end = std::int64_t(start.value()) + length.value() - 1;
    const auto last =
        static_cast<std::int32_t>(std::min(end, static_cast<std::int64_t>(countCharacters(text->string()))));
    if (start.value() <= last) {
        m_Sheet->formats().change(first(), [=](CellFormat& cell) {
            cell.subscripts = changedRuns(cell.subscripts, start.value(), last, subscript);
        });
    }
}

}  // namespace TBVNonPara::workbook
