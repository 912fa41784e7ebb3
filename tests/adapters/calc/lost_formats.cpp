#include "tests/adapters/calc/lost_formats.hpp"

#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/table/CellHoriJustify.hpp>
#include <com/sun/star/table/TableBorder2.hpp>
#include <com/sun/star/text/XTextRange.hpp>
#include <com/sun/star/util/XNumberFormatsSupplier.hpp>

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

std::string formatsOf(const DocumentRef& document, const Cell& cell) {
    const auto alignment = valueOf<css::table::CellHoriJustify>(cell, "HoriJustify");
    return "weight " + std::to_string(valueOf<float>(cell, "CharWeight")) + ", numbers " +
           numberFormatOf(document, cell) + ", alignment " + std::to_string(static_cast<int>(alignment)) +
           ", borders" + bordersOf(cell) + ", colour " +
           std::to_string(valueOf<sal_Int32>(cell, "CellBackColor")) + ", lowered" + escapementsOf(cell);
}

}  // namespace

std::vector<std::string> lostFormats(const DocumentRef& scratch, const SheetAreas& placed) {
    std::vector<std::string> lost;
    const CellArea& block = placed.areas.front();
    const SheetRef report = sheetAt(scratch, 0);
    for (std::int32_t row = 0; row < block.rows(); ++row) {
        for (std::int32_t column = 0; column < block.columns(); ++column) {
            const std::string wanted = formatsOf(scratch, report->getCellByPosition(column, row));
            const std::string found = formatsOf(
                placed.document, placed.sheet->getCellByPosition(block.left + column, block.top + row));
            if (wanted != found) {
                lost.push_back("Row " + std::to_string(row + 1) + ", column " + std::to_string(column + 1) +
                               " has " + found + "; wanted " + wanted);
            }
        }
    }
    return lost;
}

}  // namespace TBVNonPara::Scenarios
