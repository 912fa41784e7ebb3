#pragma once

#include <string>
#include <variant>
#include <vector>

#include "tbvnonpara/analysis/details.hpp"

namespace TBVNonPara::rendering {

/// How a number of the details is shown: with four decimals, as a probability (5.11e-07 below 0.0001), whole.
enum class DetailForm { Number, Probability, Whole };

/// A cell of a table: nothing, a text, or a number.
struct DetailCell {
    std::variant<std::monostate, std::string, double> value;
    DetailForm form = DetailForm::Number;
    double log10 = 0;  ///< of a probability, where the number itself may have run out
};

[[nodiscard]] std::string shownDetail(const DetailCell& cell);

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

[[nodiscard]] DetailPage detailPage(const analysis::Details& details);

}  // namespace TBVNonPara::rendering
