#include "adapters/calc/data_rows.hpp"

#include <algorithm>

#include "adapters/calc/visible_rows.hpp"
#include "tbvnonpara/core/error.hpp"

namespace TBVNonPara::calc {

namespace {

/// Row by row from the top of an area: whether it is shown. A row of labels counts as shown.
std::vector<bool> shownRows(const SheetRef& sheet, const CellArea& area, bool headers) {
    std::vector<bool> shown(static_cast<std::size_t>(area.rows()), false);
    for (const RowStretch& stretch : visibleRows(sheet, area.top, area.bottom)) {
        std::fill(shown.begin() + (stretch.first - area.top), shown.begin() + (stretch.last - area.top + 1),
                  true);
    }
    shown.front() = shown.front() || headers;
    return shown;
}

/// What is hidden in one area is hidden in all, row by row from their tops.
void hideTogether(std::vector<std::vector<bool>>& areas) {
    std::vector<bool> hidden;
    for (const std::vector<bool>& shown : areas) {
        hidden.resize(std::max(hidden.size(), shown.size()), false);
        for (std::size_t row = 0; row < shown.size(); ++row) {
            hidden[row] = hidden[row] || !shown[row];
        }
    }
    for (std::vector<bool>& shown : areas) {
        for (std::size_t row = 0; row < shown.size(); ++row) {
            shown[row] = !hidden[row];
        }
    }
}

/// A sheet that was looked up twice is two objects.
bool isSame(const SheetAreas& one, const SheetAreas& other) {
    return one.document == other.document && one.areas == other.areas &&
           positionOf(one.sheet) == positionOf(other.sheet);
}

std::string plainAddress(const SheetRef& sheet, const CellArea& area) {
    std::string address = toUtf8(nameOf(sheet)) + '!' + absoluteAddress(area);
    std::erase(address, '$');
    return address;
}

}  // namespace

std::span<const std::int32_t> rowsWithin(const KeptRows& rows, const CellArea& area) {
    const auto first = std::ranges::lower_bound(rows, area.top);
    return {first, std::ranges::upper_bound(first, rows.end(), area.bottom)};
}

RowRules rowRules(TBVNPMethod method, bool headers) noexcept {
    const bool paired =
        method == tbvNPWilcoxon || method == tbvNPSpearman || method == tbvNPSign || method == tbvNPFriedman;
    return {headers, paired};
}

std::vector<KeptRowsRef> DataRows::name(DataRange range, const SheetAreas& cells) {
    if (const Slot& same = slot(range); same.cells.sheet.is() && isSame(same.cells, cells)) {
        return {same.rows.begin(), same.rows.end()};
    }
    Slot named{cells, {}};
    for (std::size_t area = 0; area < cells.areas.size(); ++area) {
        named.rows.push_back(std::make_shared<KeptRows>());
    }
    slot(range) = named;
    return {named.rows.begin(), named.rows.end()};
}

void DataRows::count(const RowRules& rules) {
    std::vector<std::vector<bool>> shown;
    for (const Slot& slot : m_Slots) {
        for (const CellArea& area : slot.cells.areas) {
            shown.push_back(shownRows(slot.cells.sheet, area, rules.headers));
        }
    }
    if (rules.paired) {
        hideTogether(shown);
    }
    m_LeftOut.clear();
    auto rows = shown.begin();
    for (const Slot& slot : m_Slots) {
        for (std::size_t area = 0; area < slot.rows.size(); ++area, ++rows) {
            KeptRows& kept = *slot.rows[area];
            kept.clear();
            for (std::size_t row = 0; row < rows->size(); ++row) {
                if ((*rows)[row]) {
                    kept.push_back(slot.cells.areas[area].top + static_cast<std::int32_t>(row));
                }
            }
            noteLeftOut(slot.cells.sheet, slot.cells.areas[area], rules.headers ? 1 : 0, kept);
        }
    }
}

void DataRows::noteLeftOut(const SheetRef& sheet, const CellArea& area, std::int32_t labels,
                           const KeptRows& rows) {
    const auto kept = static_cast<std::int32_t>(rows.size()) - labels;
    const std::int32_t all = area.rows() - labels;
    if (all > 0 && kept == 0) {
        throw Error(tbvNPNoData,
                    plainAddress(sheet, area) +
                        " has no visible row of data; show some of its rows or use all of them.");
    }
    if (kept < all) {
        m_LeftOut += plainAddress(sheet, area) + ": " + std::to_string(all - kept) + " of " +
                     std::to_string(all) + " rows\n";
    }
}

}  // namespace TBVNonPara::calc
