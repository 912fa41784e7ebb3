#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::analysis {

/// Cells as a user names them: a rectangle, or whole columns whose rows are still open.
struct Piece {
    Rectangle cells;
    bool wholeColumns = false;
};

/// What one name stands for.
struct NamedCells {
    std::shared_ptr<workbook::Sheet> sheet;
    std::vector<Piece> pieces;  ///< empty for none
    bool byHeader = false;
};

/// How the first row of a sheet may be read when a column is looked up by its header.
enum class HeaderLookup {
    None,   ///< the first row holds data
    Texts,  ///< a text is a header
    All,    ///< a number may be a header too
};

/// Looks up headers, column letters and addresses on the active sheet (an address may name another one).
/// Raises badRange with a description.
[[nodiscard]] NamedCells findCells(const workbook::EmbeddedApplication& application, std::string_view text,
                                   HeaderLookup lookup, std::int32_t badRange);

/// The column with this header, these letters or this address (B:B) on the active sheet; none when there is
/// none.
[[nodiscard]] std::optional<Index> findColumn(const workbook::EmbeddedApplication& application,
                                              std::string_view text, HeaderLookup lookup);

/// "The columns are A (weight), B (feed)": the first dozen of the active sheet.
[[nodiscard]] std::string columnsInWords(const workbook::EmbeddedApplication& application,
                                         HeaderLookup lookup);

/// How the first row is read when the user says whether it holds headers, or leaves it open.
[[nodiscard]] HeaderLookup lookupFor(const std::optional<bool>& headers) noexcept;

/// The columns of a sheet that hold something, from left to right, one piece each.
[[nodiscard]] std::vector<Piece> columnsWithData(const workbook::Sheet& sheet);

}  // namespace TBVNonPara::analysis
