#pragma once

#include <initializer_list>
#include <span>
#include <utility>
#include <vector>

#include "tbvnonpara/core/whole_numbers.hpp"

namespace TBVNonPara {

/// A two-dimensional array counted from 1, rows then columns, stored column by column because that is how
/// samples are read. It is unallocated until it is given a size; round brackets check both subscripts and
/// raise SubscriptOutOfRange.
template <typename Element>
class Grid {
 public:
    /// Unallocated.
    Grid() = default;

    /// So many equal elements. Raises SubscriptOutOfRange for a negative size, OutOfMemory beyond the address
    /// space.
    Grid(Long rows, Long columns, const Element& element = Element())
        : m_Allocated(true),
          m_Rows(checkedSize(rows)),
          m_Columns(checkedSize(columns)),
          m_Elements(cells(m_Rows, m_Columns), element) {}

    /// A grid written as it looks: rows of equal length.
    Grid(std::initializer_list<std::initializer_list<Element>> rows)
        : m_Allocated(true), m_Rows(rows.size()) {
        m_Columns = m_Rows == 0 ? 0 : rows.begin()->size();
        m_Elements.resize(m_Rows * m_Columns);
        Index row = 0;
        for (const auto& elements : rows) {
            row += 1;
            Index column = 0;
            for (const Element& element : elements) {
                column += 1;
                (*this)(row, column) = element;
            }
        }
    }

    /// Whether it has a size, which may be 0.
    [[nodiscard]] bool allocated() const noexcept { return m_Allocated; }

    /// The last row; raises SubscriptOutOfRange on an unallocated grid.
    [[nodiscard]] Long rows() const { return upperBound(m_Rows); }
    /// The last column; raises SubscriptOutOfRange on an unallocated grid.
    [[nodiscard]] Long columns() const { return upperBound(m_Columns); }

    /// The element at a row and column from 1 on; raises SubscriptOutOfRange.
    [[nodiscard]] Element& operator()(auto row, auto column) {
        return m_Elements[position(toIndex(row), toIndex(column))];
    }
    /// The same.
    [[nodiscard]] const Element& operator()(auto row, auto column) const {
        return m_Elements[position(toIndex(row), toIndex(column))];
    }

    /// One column from top to bottom, for algorithms that walk it; raises SubscriptOutOfRange.
    [[nodiscard]] std::span<Element> column(auto column) {
        return std::span<Element>(m_Elements).subspan(columnStart(toIndex(column)), m_Rows);
    }
    /// The same.
    [[nodiscard]] std::span<const Element> column(auto column) const {
        return std::span<const Element>(m_Elements).subspan(columnStart(toIndex(column)), m_Rows);
    }

    /// Whether size and elements are equal.
    friend bool operator==(const Grid&, const Grid&) = default;

 private:
    static std::size_t checkedSize(Long size) {
        if (size < Long(0)) {
            raise(RuntimeError::SubscriptOutOfRange);
        }
        return static_cast<std::size_t>(size.value());
    }

    /// So many cells, where the address space has room for them.
    static std::size_t cells(std::uint64_t rows, std::uint64_t columns) {
        if (!std::in_range<std::size_t>(rows * columns)) {
            raise(RuntimeError::OutOfMemory);
        }
        return static_cast<std::size_t>(rows * columns);
    }

    [[nodiscard]] Long upperBound(std::size_t bound) const {
        if (!m_Allocated) {
            raise(RuntimeError::SubscriptOutOfRange);
        }
        return Long(bound);
    }

    [[nodiscard]] std::size_t columnStart(Index column) const {
        const auto fromZero = static_cast<std::size_t>(column - 1);
        if (fromZero >= m_Columns) {
            raise(RuntimeError::SubscriptOutOfRange);
        }
        return fromZero * m_Rows;
    }

    [[nodiscard]] std::size_t position(Index row, Index column) const {
        const auto fromZero = static_cast<std::size_t>(row - 1);
        if (fromZero >= m_Rows) {
            raise(RuntimeError::SubscriptOutOfRange);
        }
        return columnStart(column) + fromZero;
    }

    bool m_Allocated = false;
    std::size_t m_Rows = 0;
    std::size_t m_Columns = 0;
    std::vector<Element> m_Elements;
};

}  // namespace TBVNonPara
