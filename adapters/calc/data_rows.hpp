#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "adapters/calc/addresses.hpp"
#include "tbvnonpara/core/enumerations.hpp"

namespace TBVNonPara::calc {

/// The two data ranges of a request, and what tells the rows of the first one apart in a table in long form.
enum class DataRange { First, Second, Groups, Blocks };

/// The rows of an area that take part, counted from 0 on the sheet, in order.
using KeptRows = std::vector<std::int32_t>;
/// Shared with the ranges that read by them: they are counted anew for every run.
using KeptRowsRef = std::shared_ptr<const KeptRows>;

/// Those of the kept rows that lie in an area.
[[nodiscard]] std::span<const std::int32_t> rowsWithin(const KeptRows& rows, const CellArea& area);

/// How the rows of the data ranges belong together.
struct RowRules {
    bool headers = false;  ///< the first row of each area holds labels and always stays
    bool paired = false;   ///< a row that is hidden in one area leaves the same row of all others out
};

/// The rules of a test: pairs and blocks lie side by side in the same row, samples and groups do not.
[[nodiscard]] RowRules rowRules(TBVNPMethod method, bool headers) noexcept;

/// Which rows of the data ranges take part when only visible rows do.
class DataRows {
 public:
    /// A data range is these cells from now on; the answer has the rows of each area, those of the same cells
    /// before among them.
    [[nodiscard]] std::vector<KeptRowsRef> name(DataRange range, const SheetAreas& cells);
    void forget(DataRange range) { slot(range) = {}; }

    /// Counts the rows by what is visible now. Raises the library's error where no data row is.
    void count(const RowRules& rules);

    /// What the last count left out, a line an area; empty where every row takes part.
    [[nodiscard]] const std::string& leftOut() const noexcept { return m_LeftOut; }

 private:
    struct Slot {
        SheetAreas cells;
        std::vector<std::shared_ptr<KeptRows>> rows;
    };

    [[nodiscard]] Slot& slot(DataRange range) { return m_Slots[static_cast<std::size_t>(range)]; }
    void noteLeftOut(const SheetRef& sheet, const CellArea& area, std::int32_t labels, const KeptRows& rows);

    std::array<Slot, 4> m_Slots;
    std::string m_LeftOut;
};

}  // namespace TBVNonPara::calc
