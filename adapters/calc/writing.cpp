#include "adapters/calc/writing.hpp"

#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/text/XTextRange.hpp>

#include "adapters/calc/formats.hpp"

namespace TBVNonPara::calc {

namespace {

using css::uno::Any;
using css::uno::Sequence;

/// What a block is written from; a value that only a cell of its own can take is left out here.
Any toData(const CellValue& value) {
    if (const auto* number = std::get_if<double>(&value)) {
        return Any(*number);
    }
    if (const auto* text = std::get_if<Text>(&value)) {
        return Any(fromUtf8(text->string()));
    }
    return Any(OUString());
}

bool needsItsOwnCell(const CellValue& value) noexcept {
    return std::holds_alternative<bool>(value) || std::holds_alternative<CellError>(value);
}

/// A formula that is nothing but an error.
OUString failing(CellError error) {
    return "=" + fromUtf8(displayText(error));
}

struct CellWriter {
    const DocumentRef& document;
    Reference<css::table::XCell> cell;

    void operator()(Empty) const { cell->setFormula({}); }
    void operator()(double number) const { cell->setValue(number); }
    void operator()(const Text& text) const {
        query<css::text::XTextRange>(cell)->setString(fromUtf8(text.string()));
    }
    void operator()(bool truth) const {
        cell->setValue(truth ? 1 : 0);
        setNumberFormat(document, cell, "BOOLEAN");
    }
    void operator()(CellError error) const { cell->setFormula(failing(error)); }
};

}  // namespace

void writeCell(const DocumentRef& document, const SheetRef& sheet, std::int32_t column, std::int32_t row,
               const CellValue& value) {
    std::visit(CellWriter{document, sheet->getCellByPosition(column, row)}, value);
}

void writeCells(const DocumentRef& document, const SheetRef& sheet, const CellArea& area,
                const ValueGrid& values) {
    Sequence<Sequence<Any>> rows(area.rows());
    Sequence<Any>* const row = rows.getArray();
    for (std::int32_t i = 0; i < area.rows(); ++i) {
        row[i].realloc(area.columns());
        Any* const cells = row[i].getArray();
        for (std::int32_t j = 0; j < area.columns(); ++j) {
            cells[j] = toData(values(i + 1, j + 1));
        }
    }
    query<css::sheet::XCellRangeData>(
        sheet->getCellRangeByPosition(area.left, area.top, area.right, area.bottom))
        ->setDataArray(rows);
    for (std::int32_t j = 0; j < area.columns(); ++j) {
        for (std::int32_t i = 0; i < area.rows(); ++i) {
            if (needsItsOwnCell(values(i + 1, j + 1))) {
                writeCell(document, sheet, area.left + j, area.top + i, values(i + 1, j + 1));
            }
        }
    }
}

}  // namespace TBVNonPara::calc
