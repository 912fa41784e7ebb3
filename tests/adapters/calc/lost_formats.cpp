#include "tests/adapters/calc/lost_formats.hpp"

#include <algorithm>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/sheet/CellFlags.hpp>
#include <com/sun/star/sheet/XCellAddressable.hpp>
#include <com/sun/star/sheet/XCellFormatRangesSupplier.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/table/CellHoriJustify.hpp>
#include <com/sun/star/table/TableBorder2.hpp>
#include <com/sun/star/text/XTextRange.hpp>
#include <com/sun/star/util/XNumberFormatsSupplier.hpp>
#include <map>
#include <optional>

namespace TBVNonPara::Scenarios {

namespace {

using namespace TBVNonPara::calc;
using Cell = Reference<css::table::XCell>;

template <typename Value>
Value valueOf(const auto& object, const char* name) {
    Value value{};
    property(object, OUString::createFromAscii(name)) >>= value;
    return value;
}

std::string numberFormatOf(const DocumentRef& document, const Cell& cell) {
    const auto formats = query<css::util::XNumberFormatsSupplier>(document)->getNumberFormats();
    const auto format = formats->getByKey(valueOf<sal_Int32>(cell, "NumberFormat"));
    return toUtf8(valueOf<OUString>(format, "FormatString"));
}

std::string bordersOf(const Cell& cell) {
    const auto borders = valueOf<css::table::TableBorder2>(cell, "TableBorder2");
    std::string widths;
    for (const auto& line : {borders.LeftLine, borders.TopLine, borders.RightLine, borders.BottomLine}) {
        widths += ' ' + std::to_string(line.OuterLineWidth);
    }
    return widths;
}

std::string escapementsOf(const Cell& cell) {
    std::string text;
    const auto paragraphs = query<css::container::XEnumerationAccess>(cell)->createEnumeration();
    while (paragraphs->hasMoreElements()) {
        const Reference<css::container::XEnumerationAccess> paragraph(paragraphs->nextElement(),
                                                                      css::uno::UNO_QUERY_THROW);
        const auto portions = paragraph->createEnumeration();
        while (portions->hasMoreElements()) {
            const Reference<css::text::XTextRange> portion(portions->nextElement(),
                                                           css::uno::UNO_QUERY_THROW);
            if (const auto lowered = valueOf<sal_Int16>(portion, "CharEscapement"); lowered != 0) {
                text += ' ' + toUtf8(portion->getString()) + std::to_string(lowered);
            }
        }
    }
    return text;
}

/// The formats of a whole cell, without those of single characters in it.
std::string formatsOf(const DocumentRef& document, const Cell& cell) {
    const auto alignment = valueOf<css::table::CellHoriJustify>(cell, "HoriJustify");
    return "weight " + std::to_string(valueOf<float>(cell, "CharWeight")) + ", numbers " +
           numberFormatOf(document, cell) + ", alignment " + std::to_string(static_cast<int>(alignment)) +
           ", borders" + bordersOf(cell) + ", colour " +
           std::to_string(valueOf<sal_Int32>(cell, "CellBackColor"));
}

/// A report as it stands somewhere.
struct PlacedReport {
    DocumentRef document;
    SheetRef sheet;
    CellArea cells;

    [[nodiscard]] auto range() const {
        return sheet->getCellRangeByPosition(cells.left, cells.top, cells.right, cells.bottom);
    }
    /// Counted from the report's first cell.
    [[nodiscard]] CellArea within(const CellArea& area) const {
        return {area.left - cells.left, area.top - cells.top, area.right - cells.left,
                area.bottom - cells.top};
    }
};

struct FormattedBlock {
    CellArea cells;
    std::string formats;
};

/// The blocks of cells that the office knows to be formatted alike.
std::vector<FormattedBlock> formattedBlocks(const PlacedReport& report) {
    const auto ranges = query<css::sheet::XCellFormatRangesSupplier>(report.range())->getCellFormatRanges();
    std::vector<FormattedBlock> blocks;
    for (sal_Int32 i = 0; i < ranges->getCount(); ++i) {
        const Reference<css::table::XCellRange> range(ranges->getByIndex(i), css::uno::UNO_QUERY_THROW);
        const CellArea cells = normalised(query<css::sheet::XCellRangeAddressable>(range)->getRangeAddress());
        blocks.push_back({report.within(cells), formatsOf(report.document, range->getCellByPosition(0, 0))});
    }
    return blocks;
}

/// The cells in which some characters are lowered, and those characters.
std::map<std::string, std::string> loweredCharacters(const PlacedReport& report) {
    std::map<std::string, std::string> lowered;
    const auto formatted = query<css::sheet::XCellRangesQuery>(report.range())
                               ->queryContentCells(css::sheet::CellFlags::FORMATTED)
                               ->getCells()
                               ->createEnumeration();
    while (formatted->hasMoreElements()) {
        const Cell cell(formatted->nextElement(), css::uno::UNO_QUERY_THROW);
        const auto at = query<css::sheet::XCellAddressable>(cell)->getCellAddress();
        const CellArea place = report.within({at.Column, at.Row, at.Column, at.Row});
        if (const std::string characters = escapementsOf(cell); !characters.empty()) {
            lowered[absoluteAddress(place)] = characters;
        }
    }
    return lowered;
}

std::optional<CellArea> common(const CellArea& a, const CellArea& b) {
    const CellArea both{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                        std::min(a.bottom, b.bottom)};
    return both.left <= both.right && both.top <= both.bottom ? std::optional(both) : std::nullopt;
}

void addLostBlocks(const PlacedReport& wanted, const PlacedReport& found, std::vector<std::string>& lost) {
    const std::vector<FormattedBlock> foundBlocks = formattedBlocks(found);
    for (const FormattedBlock& block : formattedBlocks(wanted)) {
        for (const FormattedBlock& instead : foundBlocks) {
            const std::optional<CellArea> cells = common(block.cells, instead.cells);
            if (cells && block.formats != instead.formats) {
                lost.push_back(absoluteAddress(*cells) + " has " + instead.formats + "; wanted " +
                               block.formats);
            }
        }
    }
}

void addLostCharacters(const PlacedReport& wanted, const PlacedReport& found,
                       std::vector<std::string>& lost) {
    const auto foundCharacters = loweredCharacters(found);
    const auto wantedCharacters = loweredCharacters(wanted);
    const auto addUnlessIn = [&](const auto& elsewhere, const auto& here, const char* what) {
        for (const auto& [cell, text] : here) {
            const auto other = elsewhere.find(cell);
            if (other == elsewhere.end() || other->second != text) {
                lost.push_back(cell + what + text);
            }
        }
    };
    addUnlessIn(foundCharacters, wantedCharacters, " wants lowered");
    addUnlessIn(wantedCharacters, foundCharacters, " has lowered");
}

}  // namespace

std::vector<std::string> lostFormats(const DocumentRef& scratch, const SheetAreas& placed) {
    const CellArea& block = placed.areas.front();
    const PlacedReport wanted{scratch, sheetAt(scratch, 0), {0, 0, block.columns() - 1, block.rows() - 1}};
    const PlacedReport found{placed.document, placed.sheet, block};
    std::vector<std::string> lost;
    addLostBlocks(wanted, found, lost);
    addLostCharacters(wanted, found, lost);
    return lost;
}

}  // namespace TBVNonPara::Scenarios
