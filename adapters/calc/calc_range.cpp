#include "adapters/calc/calc_range.hpp"

#include <algorithm>
#include <com/sun/star/sheet/CellFlags.hpp>
#include <com/sun/star/sheet/XSheetOperation.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>

#include "adapters/calc/calc_worksheet.hpp"
#include "adapters/calc/formats.hpp"
#include "adapters/calc/placing.hpp"
#include "adapters/calc/reading.hpp"
#include "adapters/calc/writing.hpp"

namespace TBVNonPara::calc {

namespace {

constexpr sal_Int32 everything =
    css::sheet::CellFlags::VALUE | css::sheet::CellFlags::DATETIME | css::sheet::CellFlags::STRING |
    css::sheet::CellFlags::ANNOTATION | css::sheet::CellFlags::FORMULA | css::sheet::CellFlags::HARDATTR |
    css::sheet::CellFlags::STYLES | css::sheet::CellFlags::EDITATTR | css::sheet::CellFlags::FORMATTED;

const CalcRange& ownRange(const RangeRef& range) {
    const auto* calcRange = dynamic_cast<const CalcRange*>(&*range);
    if (calcRange == nullptr) {
        raise(RuntimeError::TypeMismatch);
    }
    return *calcRange;
}

/// The rows of an area's values that take part.
ValueGrid pickRows(const ValueGrid& values, std::int32_t top, std::span<const std::int32_t> rows) {
    ValueGrid kept(Long(rows.size()), values.columns());
    for (Index column = 1; column <= toIndex(values.columns()); ++column) {
        const auto source = values.column(column);
        std::ranges::transform(rows, kept.column(column).begin(),
                               [&](std::int32_t row) { return source[static_cast<std::size_t>(row - top)]; });
    }
    return kept;
}

}  // namespace

CalcRange::CalcRange(std::shared_ptr<Session> session, SheetAreas cells, std::vector<KeptRowsRef> rows)
    : m_Session(std::move(session)), m_Cells(std::move(cells)), m_Rows(std::move(rows)) {
}

const SheetAreas& cellsOf(const RangeRef& range) {
    return ownRange(range).cells();
}

RangeRef rangeBetween(const std::shared_ptr<Session>& session, const RangeRef& first, const RangeRef& last) {
    const SheetAreas& from = cellsOf(first);
    const SheetAreas& to = cellsOf(last);
    if (from.sheet != to.sheet) {
        raiseHostError("A range runs between two cells of one sheet.");
    }
    const CellArea area = around(from.areas.front(), to.areas.front());
    return makeObject<CalcRange>(session, SheetAreas{from.document, from.sheet, {area}},
                                 ownRange(first).rows());
}

std::span<const std::int32_t> CalcRange::keptRows() const {
    return rowsWithin(*m_Rows.front(), first());
}

RangeRef CalcRange::GetCells(Long row, Long column) const {
    if (m_Rows.empty()) {
        return cellOf(m_Session, m_Cells.document, m_Cells.sheet, Long(first().top) + row,
                      Long(first().left) + column);
    }
    const std::span<const std::int32_t> kept = keptRows();
    if (row < 1 || row > Long(kept.size())) {
        raise(RuntimeError::SubscriptOutOfRange);
    }
    const std::int32_t top = kept[static_cast<std::size_t>(row.value() - 1)];
    const RangeRef cell =
        cellOf(m_Session, m_Cells.document, m_Cells.sheet, Long(top) + 1, Long(first().left) + column);
    return makeObject<CalcRange>(m_Session, cellsOf(cell), std::vector{m_Rows.front()});
}

Long CalcRange::GetRowsCount() const {
    return m_Rows.empty() ? Long(first().rows()) : Long(keptRows().size());
}

Long CalcRange::GetColumnsCount() const {
    return first().columns();
}

Long CalcRange::GetAreasCount() const {
    return Long(m_Cells.areas.size());
}

RangeRef CalcRange::GetAreas(Long area) const {
    if (area < 1 || area > GetAreasCount()) {
        raise(RuntimeError::SubscriptOutOfRange);
    }
    const auto position = static_cast<std::size_t>(area.value() - 1);
    std::vector<KeptRowsRef> rows;
    if (!m_Rows.empty()) {
        rows.push_back(m_Rows[position]);
    }
    return makeObject<CalcRange>(
        m_Session, SheetAreas{m_Cells.document, m_Cells.sheet, {m_Cells.areas[position]}}, std::move(rows));
}

WorksheetRef CalcRange::GetWorksheet() const {
    return makeObject<CalcWorksheet>(m_Session, m_Cells.document, m_Cells.sheet);
}

std::string CalcRange::GetAddress() const {
    return absoluteAddress(m_Cells.areas);
}

// Letters and numbers are the user's notation as well: the library takes column letters from this text.
std::string CalcRange::GetAddressLocal() const {
    return GetAddress();
}

ValueGrid CalcRange::GetValue() const {
    return m_Rows.empty() ? readAll() : pickRows(readAll(), first().top, keptRows());
}

bool CalcRange::HoldsNumbers(Long firstRow) const {
    CellArea rows = first();
    rows.top += firstRow.value() - 1;
    if (!m_Rows.empty() || !m_Session->isRunning() || rows.top > rows.bottom) {
        return false;
    }
    m_Session->step();
    if (m_Session->remembered(m_Cells.sheet, first()) == nullptr) {
        hosted([&] {
            m_Session->remember(m_Cells.sheet, first(), readCells(m_Cells.document, m_Cells.sheet, first()));
        });
    }
    return m_Session->remembered(m_Cells.sheet, first())->holdNumbers(rows);
}

NumberColumns CalcRange::GetNumbers() const {
    return m_Session->remembered(m_Cells.sheet, first())->numbers(first());
}

ValueGrid CalcRange::readAll() const {
    m_Session->step();
    if (const RememberedCells* const cells = m_Session->remembered(m_Cells.sheet, first())) {
        return cells->values(first());
    }
    return hosted([&] {
        ValueGrid values = readCells(m_Cells.document, m_Cells.sheet, first());
        m_Session->remember(m_Cells.sheet, first(), values);
        return values;
    });
}

CalcRange::Block CalcRange::block(const CellArea& area) const {
    return m_Cells.sheet->getCellRangeByPosition(area.left, area.top, area.right, area.bottom);
}

void CalcRange::change(const auto& work) {
    m_Session->step();
    hosted([&] {
        m_Session->beforeChange(m_Cells.document);
        for (const CellArea& area : m_Cells.areas) {
            work(area);
        }
    });
}

void CalcRange::noteBooleans(const ValueGrid& values, const CellArea& area) const {
    m_Session->forgetBooleans(m_Cells.sheet, area);
    for (std::int32_t column = 0; column < values.columns().value(); ++column) {
        for (std::int32_t row = 0; row < values.rows().value(); ++row) {
            if (std::holds_alternative<bool>(values(row + 1, column + 1))) {
                const CellArea cell{area.left + column, area.top + row, area.left + column, area.top + row};
                m_Session->rememberBoolean(m_Cells.sheet, cell);
            }
        }
    }
}

void CalcRange::LetValue(const CellValue& value) {
    change([&](const CellArea& area) {
        if (area.isOneCell()) {
            noteBooleans(ValueGrid{{value}}, area);
            writeCell(m_Cells.document, m_Cells.sheet, area.left, area.top, value);
        } else {
            const ValueGrid values(area.rows(), area.columns(), value);
            noteBooleans(values, area);
            writeCells(m_Cells.document, m_Cells.sheet, area, values);
        }
    });
}

void CalcRange::LetValue(std::span<const CellValue> values) {
    if (first().rows() != 1 || values.size() != static_cast<std::size_t>(first().columns())) {
        raise(RuntimeError::InvalidProcedureCall);
    }
    ValueGrid row(1, Long(values.size()));
    Index column = 0;
    for (const CellValue& value : values) {
        column += 1;
        row(1, column) = value;
    }
    LetValue(row);
}

void CalcRange::LetValue(const ValueGrid& values) {
    if (values.rows() != first().rows() || values.columns() != first().columns()) {
        raise(RuntimeError::InvalidProcedureCall);
    }
    change([&](const CellArea& area) {
        noteBooleans(values, area);
        writeCells(m_Cells.document, m_Cells.sheet, area, values);
    });
}

void CalcRange::Clear() {
    change([&](const CellArea& area) {
        m_Session->forgetBooleans(m_Cells.sheet, area);
        query<css::sheet::XSheetOperation>(block(area))->clearContents(everything);
    });
}

void CalcRange::LetNumberFormat(std::string_view format) {
    change([&](const CellArea& area) {
        // As the numbers around the report's place are shown, with the comma or the point of the user's
        // document.
        const css::lang::Locale locale = localeOfNumbers(m_Session->document());
        setNumberFormat(m_Cells.document, block(area), format, locale);
        for (const CellArea& cell : m_Session->booleansIn(m_Cells.sheet, area)) {
            setNumberFormat(m_Cells.document, block(cell), "BOOLEAN");
        }
    });
}

void CalcRange::LetHorizontalAlignment(HorizontalAlignment alignment) {
    change([&](const CellArea& area) { setAlignment(block(area), alignment); });
}

void CalcRange::LetInteriorColorIndex(Integer index) {
    change([&](const CellArea& area) { setInteriorColour(block(area), index); });
}

void CalcRange::LetFontBold(bool bold) {
    change([&](const CellArea& area) { setBold(block(area), bold); });
}

void CalcRange::LetBorder(BorderEdge edge, BorderLine line) {
    change([&](const CellArea& area) { setBorder(block(area), edge, line); });
}

void CalcRange::LetCharactersFontSubscript(Long start, Long length, bool subscript) {
    change([&](const CellArea& area) {
        setSubscript(m_Cells.sheet->getCellByPosition(area.left, area.top), start, length, subscript);
    });
}

void CalcRange::Copy() {
    m_Session->copy(m_Cells);
}

void CalcRange::PasteSpecial(PasteKind kind) {
    m_Session->step();
    hosted([&] { place(*m_Session, m_Session->copied(), m_Cells, kind); });
}

void CalcRange::Select() {
    hosted([&] { select(*m_Session, m_Cells); });
}

}  // namespace TBVNonPara::calc
