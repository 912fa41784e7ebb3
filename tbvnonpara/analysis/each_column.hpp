#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tbvnonpara/analysis/choices.hpp"
#include "tbvnonpara/analysis/ranges.hpp"
#include "tbvnonpara/analysis/run_test.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/error.hpp"
#include "tbvnonpara/details/details.hpp"
#include "tbvnonpara/engine/named_results.hpp"
#include "tbvnonpara/reshaping/account.hpp"
#include "tbvnonpara/reshaping/refusal.hpp"

namespace TBVNonPara::analysis {

/// Columns of values of one table, each of which is tested by itself.
struct EachColumn {
    ChosenRanges chosen;  ///< those of the first column; the others share all but `y`
    std::vector<Rectangle> columns;
};

/// Whether the choices ask for a test of each column: in so many words, or by several columns of values
/// beside one that names groups.
[[nodiscard]] TBVNONPARA_API bool testsEachColumn(const workbook::EmbeddedApplication& application,
                                                  const Choices& choices);

/// The columns that the choices name, else all that hold numbers and have no other part. Raises what
/// `chooseRanges` raises.
[[nodiscard]] TBVNONPARA_API EachColumn chooseEach(const workbook::EmbeddedApplication& application,
                                                   const Choices& choices);

/// What became of one column.
struct ColumnTest {
    std::string column;   ///< its header, or its letters
    std::string address;  ///< as a report shows it
    std::vector<NamedResult> results;
    reshaping::Account account;
    std::optional<Details> details;                   ///< where they were asked for and exist
    std::string detailsProblem;                       ///< why there are none though they were asked for
    std::optional<statistics::Probability> adjusted;  ///< P of the details, for all columns together
    std::optional<Error> error;                       ///< why there are no results
    reshaping::Remedy remedy = reshaping::Remedy::CorrectData;  ///< what helps against that
};

/// Tests each column by itself, on all processors, in the order of the columns; in full where details are
/// asked for, with P adjusted over the columns.
[[nodiscard]] TBVNONPARA_API std::vector<ColumnTest> testEach(
    const workbook::EmbeddedApplication& application, const Choices& choices, const EachColumn& each,
    const std::optional<DetailChoices>& details = {});

/// The same one after the other, with each report as it comes; it is gone when `report` returns.
[[nodiscard]] TBVNONPARA_API std::vector<ColumnTest> reportEach(
    const workbook::EmbeddedApplication& application, const Choices& choices, const EachColumn& each,
    const std::function<void(const ColumnTest&, const FinishedTest&)>& report,
    const std::optional<DetailChoices>& details = {});

}  // namespace TBVNonPara::analysis
