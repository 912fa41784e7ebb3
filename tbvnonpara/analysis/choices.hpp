#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "tbvnonpara/files/csv/encoding.hpp"
#include "tbvnonpara/request/tests_offered.hpp"

namespace TBVNonPara::analysis {

enum class CutAt { Median, Mean, Number };

/// What becomes of the numbers that equal the value where a sequence is cut.
enum class CutEqual { Drop, Above, Below };

/// Where a sequence of numbers is cut into those above and those below.
struct Cut {
    CutAt at = CutAt::Median;
    double number = 0;  ///< for `CutAt::Number`
    CutEqual equal = CutEqual::Drop;
};

/// What a user chooses before an analysis: the table, its columns, the test and its options, and the place of
/// the report. Empty addresses leave the choice to the analysis.
struct Choices {
    const OfferedTest* test = nullptr;
    std::string file;
    std::string sheet;              ///< the sheet to read; empty for the file's active one
    std::optional<char> delimiter;  ///< of a text file, where it shall not be guessed
    std::optional<char> decimal;    ///< its decimal mark
    std::optional<char> thousands;  ///< what divides its groups of thousands
    workbook::Encoding encoding = workbook::Encoding::Utf8;
    std::string comment;  ///< lines that begin with it are left out; empty for none
    std::string y;        ///< headers, letters or addresses of columns
    std::string x;
    std::string by;                         ///< the column whose values split `y` into groups; empty for none
    std::vector<std::string> groups;        ///< those to compare, in this order; empty for all
    std::string block;                      ///< the column that tells which values belong together
    std::vector<std::string> where;         ///< conditions on the rows, all of which must hold
    bool omitMissing = false;               ///< whether missing values are left out
    std::vector<std::string> missingWords;  ///< what stands for them beside the usual words
    bool each = false;                      ///< whether each column of `y` is tested by itself
    bool transpose = false;                 ///< whether the rows of the sheet are the columns of the table
    bool account = false;         ///< whether the data are brought into form in any case, to be counted
    std::optional<bool> headers;  ///< whether the first row of each range holds labels
    bool descriptives = false;
    bool ignoreTies = false;
    std::optional<Cut> cut;  ///< of a sequence
    TBVNPTails tails = tbvNPTwoTailed;
    std::string output;       ///< the cell that the report begins at; empty for a new sheet
    bool overwrite = false;   ///< whether the report may replace cells
    std::size_t threads = 1;  ///< how many read a long text file and sort at most; no figure depends on it
};

}  // namespace TBVNonPara::analysis
