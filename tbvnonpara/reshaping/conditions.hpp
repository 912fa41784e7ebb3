#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/reshaping/column.hpp"
#include "tbvnonpara/reshaping/missing.hpp"

namespace TBVNonPara::reshaping {

enum class Comparison { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual, In };

/// A condition on the rows of a table, as it is written: "feed = casein", "weight >= 200", "feed in casein,
/// linseed". A value may stand in quotes.
struct WrittenCondition {
    std::string text;
    std::string column;
    Comparison comparison = Comparison::Equal;
    std::vector<std::string> values;  ///< one, or several behind `in`
};

/// The columns that a condition may name.
struct KnownColumns {
    std::function<bool(std::string_view)> has;
    std::function<std::string()> list;  ///< a sentence for the refusal
};

/// Takes a condition apart where what stands before the comparison names a column. Raises a Refusal when no
/// place does, or nothing is compared.
[[nodiscard]] WrittenCondition readCondition(std::string_view text, const KnownColumns& columns);

/// Which cells of the column fulfil the condition. What counts as missing depends on what the column holds,
/// numbers or names, and not on the condition: numbers compare as numbers, dates (year first) with dates
/// and with the days of a sheet, texts as texts. An empty value is equal to what is missing, which fulfils
/// nothing else, not even !=. Raises a Refusal for an order among texts.
[[nodiscard]] std::vector<bool> fulfilling(const WrittenCondition& condition, const Column& column,
                                           const Missing& missing);

/// The different values of a column in the order in which they come, the first dozen: "casein, linseed, ...".
[[nodiscard]] std::string valuesOf(const Column& column);

}  // namespace TBVNonPara::reshaping
