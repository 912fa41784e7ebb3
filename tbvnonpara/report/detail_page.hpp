#pragma once

#include <string>
#include <variant>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara {

/// How a number of the details is shown: with four decimals, as a probability (5.11e-07 below 0.0001), whole,
/// in per cent, or as so many of a whole number ("12 of 22").
enum class DetailForm { Number, Probability, Whole, Percent, Share };

/// A cell of a table: nothing, a text, or a number.
struct DetailCell {
    std::variant<std::monostate, std::string, double> value;
    DetailForm form = DetailForm::Number;
    double log10 = 0;  ///< of a probability, where the number itself may have run out
    double whole = 0;  ///< what a share is of
};

/// A row begins with its name.
struct DetailTable {
    std::string title;
    std::vector<std::string> headings;  ///< without one for the names
    std::vector<std::vector<DetailCell>> rows;
};

/// A test in full as people read it: sentences, tables, and notes on ties and on what cannot be had.
struct DetailPage {
    std::vector<std::string> words;
    std::vector<DetailTable> tables;
    std::vector<std::string> notes;
};

/// The smallest probability that is a number of its own; of one below, only the logarithm is known.
constexpr double smallestProbability = 1e-300;

/// "3.42e-968" of a probability that a double does not hold.
[[nodiscard]] TBVNONPARA_API std::string smallProbabilityText(double log10);

/// What a cell of a sheet holds and how it is shown there: a number stays one, as far as it can be held.
[[nodiscard]] TBVNONPARA_API CellValue sheetValue(const DetailCell& cell);
[[nodiscard]] TBVNONPARA_API std::string sheetFormat(const DetailCell& cell);

}  // namespace TBVNonPara
