#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "tbvnonpara/core/whole_numbers.hpp"

namespace TBVNonPara {

/// Columns of numbers alone, in pieces that stay where a host keeps them: who reads shares them, and a host
/// changes no piece that somebody else holds. Rows and columns count from 1.
class NumberColumns {
 public:
    /// So many columns without a row.
    explicit NumberColumns(Long columns) : m_Columns(static_cast<std::size_t>(columns.value())) {}

    /// How many rows the first column has; all have as many once they are filled.
    [[nodiscard]] Long rows() const {
        return Long(m_Columns.empty() ? std::size_t(0) : m_Columns.front().rows);
    }
    /// How many columns there are.
    [[nodiscard]] Long columns() const { return Long(m_Columns.size()); }

    /// Numbers at a column's end; `owner` keeps them.
    void append(auto column, std::shared_ptr<const void> owner, std::span<const double> numbers) {
        Column& whole = m_Columns[static_cast<std::size_t>(toIndex(column) - 1)];
        whole.rows += numbers.size();
        whole.pieces.push_back({std::move(owner), numbers});
    }
    /// Numbers of their own.
    void append(auto column, std::vector<double> numbers) {
        const auto owner = std::make_shared<const std::vector<double>>(std::move(numbers));
        append(column, owner, *owner);
    }

    /// Calls visit(numbers) for the pieces of a column from top to bottom.
    void visit(auto column, const auto& visit) const {
        for (const Piece& piece : m_Columns[static_cast<std::size_t>(toIndex(column) - 1)].pieces) {
            visit(piece.numbers);
        }
    }

    /// The first numbers of a column, as many as the span takes.
    void copy(auto column, std::span<double> to) const {
        visit(column, [&](std::span<const double> numbers) {
            const std::size_t size = std::min(to.size(), numbers.size());
            std::ranges::copy(numbers.first(size), to.begin());
            to = to.subspan(size);
        });
    }

 private:
    struct Piece {
        std::shared_ptr<const void> owner;
        std::span<const double> numbers;
    };
    struct Column {
        std::vector<Piece> pieces;
        std::size_t rows = 0;
    };

    std::vector<Column> m_Columns;
};

}  // namespace TBVNonPara
