#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/rectangle.hpp"
#include "tbvnonpara/host/Range.hpp"
#include "tbvnonpara/workbook/sheet.hpp"

namespace TBVNonPara::workbook {

/// Areas of one sheet. Formats, Clear and one value reach every area; the rest is the first area's.
class TBVNONPARA_API SheetRange final : public Range {
 public:
    /// There is at least one area.
    SheetRange(std::shared_ptr<Sheet> sheet, Areas areas);

    [[nodiscard]] const std::shared_ptr<Sheet>& sheet() const noexcept { return m_Sheet; }
    [[nodiscard]] const Areas& areas() const noexcept { return m_Areas; }

    [[nodiscard]] RangeRef GetCells(Long row, Long column) const override;
    [[nodiscard]] Long GetRowsCount() const override { return first().rows(); }
    [[nodiscard]] Long GetColumnsCount() const override { return first().columns(); }
    [[nodiscard]] Long GetAreasCount() const override { return m_Areas.size(); }
    [[nodiscard]] RangeRef GetAreas(Long area) const override;
    [[nodiscard]] WorksheetRef GetWorksheet() const override { return m_Sheet; }
    [[nodiscard]] std::string GetAddress() const override;
    [[nodiscard]] std::string GetAddressLocal() const override { return GetAddress(); }

    /// Raises the host's error for a formula whose result is not known.
    [[nodiscard]] ValueGrid GetValue() const override;
    [[nodiscard]] bool HoldsNumbers(Long firstRow) const override;
    [[nodiscard]] NumberColumns GetNumbers() const override { return m_Sheet->values().numbers(first()); }
    void LetValue(const CellValue& value) override;
    /// Both lists and grids must have exactly the size of the range.
    void LetValue(std::span<const CellValue> values) override;
    void LetValue(const ValueGrid& values) override;
    void Clear() override;

    void LetNumberFormat(std::string_view format) override;
    void LetHorizontalAlignment(HorizontalAlignment alignment) override;
    void LetInteriorColorIndex(Integer index) override;
    void LetFontBold(bool bold) override;
    void LetBorder(BorderEdge edge, BorderLine line) override;
    /// The range must be one cell that holds a text; characters behind its end are left out of the run.
    void LetCharactersFontSubscript(Long start, Long length, bool subscript) override;

    /// Takes a picture of the cells: what is written to them later is not pasted.
    void Copy() override;
    void PasteSpecial(PasteKind kind) override;
    /// The sheet must be the active one.
    void Select() override;

 private:
    [[nodiscard]] const Rectangle& first() const noexcept { return m_Areas.front(); }
    void changeFormat(const FormatStore::Change& change);
    /// For messages: Data!$A$1:$A$9.
    [[nodiscard]] std::string fullAddress() const;

    std::shared_ptr<Sheet> m_Sheet;
    Areas m_Areas;
};

/// Raises the host's error for a cell in one of the areas whose formula the file holds without its result.
TBVNONPARA_API void requireCalculated(const Sheet& sheet, const Areas& areas);

/// The range as one of this host; raises ObjectNotSet for none, the host's error for another host's.
[[nodiscard]] TBVNONPARA_API const SheetRange& ownRange(const RangeRef& range);

/// The rectangle around the first areas of two ranges of one sheet.
[[nodiscard]] TBVNONPARA_API RangeRef rangeBetween(const RangeRef& first, const RangeRef& last);

}  // namespace TBVNonPara::workbook
