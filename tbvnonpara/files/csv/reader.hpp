#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/rectangle.hpp"
#include "tbvnonpara/files/csv/encoding.hpp"
#include "tbvnonpara/workbook/cell_store.hpp"

namespace TBVNonPara::workbook {

/// How a text is to be read. What is left out is found out from the text.
///
///     openDataFile(*application, "ranks.csv", {.delimiter = ';', .decimalMark = ',', .comment = "#"});
struct CsvOptions {
    /// What stands between fields: one character of ASCII; ' ' stands for blanks and tabs, however many.
    std::optional<char> delimiter = std::nullopt;
    std::optional<char> decimalMark = std::nullopt;  ///< '.' or ','
    /// What stands between groups of three digits: '.', ',', '\'' or ' ' (of any kind).
    std::optional<char> thousands = std::nullopt;
    Encoding encoding = Encoding::Utf8;  ///< of a text without a byte order mark
    std::string comment = {};            ///< lines that begin with it are left out
    /// How many columns are read without an error: a sheet's, unless what reads the cells needs no addresses.
    Index mostColumns = sheetColumns;
    std::size_t threads = 1;  ///< how many read a long text at most; what is read is the same on any number
};

/// What was read, and as what.
struct CsvData {
    CellStore cells;                ///< a line of the text is a row, a field a column, from 1
    std::optional<char> delimiter;  ///< none in a text of one column
    char decimalMark = '.';         ///< that of its numbers; '.' where no number has one
    bool headerMoved = false;  ///< by one column, over its own: it was one field shorter than the rows below
};

/// Reads delimited text (UTF-8, UTF-16 with a byte order mark, or the encoding that the options name; lines
/// end with LF, CRLF or CR) into cells, every line a row, blank ones too. A first line "sep=;" says what
/// stands between fields and is no row.
///
/// Where blanks stand between fields, several of them and tabs count as one, and none at a line's ends.
///
/// A field is a number when all of it reads as one (exactly rounded; blanks around it allowed), TRUE or FALSE
/// in any case a Boolean, "#N/A" and its like an error value, nothing an empty cell, anything else a text as
/// it stands. A field in quotes may hold delimiters, line ends and doubled quotes; it is a number as well,
/// because many programs quote everything, unless it has leading zeros, and otherwise always a text.
///
/// The decimal mark is a point where the delimiter is a comma; elsewhere the first number that has a mark
/// decides, and a number with the other mark stays a text.
///
/// A header row one field shorter than all rows below is that of R, which leaves out the one above its row
/// names: it is moved by one column.
///
/// Raises the host's error, which names `source` and the line, for text in another encoding (NotUtf8
/// where UTF-8 was expected), a quote that is not closed, a header row of any other length than the rows
/// below, and values beyond the size of a sheet. O(bytes); equal texts are kept once.
[[nodiscard]] TBVNONPARA_API CsvData readCsv(std::string_view bytes, const CsvOptions& options = {},
                                             std::string_view source = "the data");

}  // namespace TBVNonPara::workbook
