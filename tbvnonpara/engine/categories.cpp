#include "tbvnonpara/engine/categories.hpp"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace TBVNonPara {

namespace {

/// A multiplicative hash whose upper half depends on all bits. 0 and -0, which are equal, have one value.
std::size_t hashOf(double number) noexcept {
    constexpr std::uint64_t goldenRatio = 0x9E3779B97F4A7C15;
    const auto bits = std::bit_cast<std::uint64_t>(number + 0.0) * goldenRatio;
    return static_cast<std::size_t>(((bits >> 32) ^ bits) * goldenRatio >> 32);
}

std::size_t hashOf(const CellValue& cell) noexcept {
    if (const auto* number = std::get_if<double>(&cell)) {
        return hashOf(*number);
    }
    if (const auto* text = std::get_if<Text>(&cell)) {
        return std::hash<std::string>()(text->string());
    }
    if (const auto* truth = std::get_if<bool>(&cell)) {
        return hashOf(*truth ? -1.0 : 0.0);
    }
    if (const auto* error = std::get_if<CellError>(&cell)) {
        return static_cast<std::size_t>(*error);
    }
    return 0;
}

/// Counts cells by category: a hash table whose slots name the category by its number, searched from one slot
/// to the next and at most half full. A category is held as the place where it appears first.
class CategoryCounter {
 public:
    explicit CategoryCounter(std::span<const CellValue> cells) : m_Cells(cells) {}

    void count(std::uint32_t cell) {
        std::uint32_t& slot = slotOf(m_Cells[cell]);
        if (slot != 0) {
            m_Counts(slot) += 1;
            return;
        }
        m_First.push_back(cell);
        m_Counts.append(1);
        slot = static_cast<std::uint32_t>(m_First.size());
        if (m_First.size() > m_Slots.size() / 2) {
            grow();
        }
    }

    [[nodiscard]] Categories take() {
        m_Slots = std::vector<std::uint32_t>();  // ahead of the values, which need the room
        Categories categories{Array<CellValue>(Long(m_First.size())), std::move(m_Counts)};
        std::ranges::transform(m_First, categories.values.elements().begin(),
                               [this](std::uint32_t cell) { return m_Cells[cell]; });
        return categories;
    }

 private:
    /// The slot of the cell's category, or the free one where it belongs.
    [[nodiscard]] std::uint32_t& slotOf(const CellValue& cell) {
        std::size_t at = hashOf(cell) & (m_Slots.size() - 1);
        while (m_Slots[at] != 0 && !sameCategory(m_Cells[m_First[m_Slots[at] - 1]], cell)) {
            at = (at + 1) & (m_Slots.size() - 1);
        }
        return m_Slots[at];
    }

    void grow() {
        m_Slots = std::vector<std::uint32_t>(2 * m_Slots.size());
        std::uint32_t category = 0;
        for (const std::uint32_t cell : m_First) {
            slotOf(m_Cells[cell]) = ++category;
        }
    }

    std::span<const CellValue> m_Cells;
    std::vector<std::uint32_t> m_First;
    Array<Long> m_Counts;
    std::vector<std::uint32_t> m_Slots = std::vector<std::uint32_t>(16);
};

}  // namespace

Categories findCategories(std::span<const CellValue> cells) {
    CategoryCounter counter(cells);
    for (std::uint32_t cell = 0; cell < cells.size(); ++cell) {
        counter.count(cell);
    }
    return counter.take();
}

}  // namespace TBVNonPara
