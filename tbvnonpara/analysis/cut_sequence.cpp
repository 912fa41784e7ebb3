#include "tbvnonpara/analysis/cut_sequence.hpp"

#include <algorithm>
#include <cmath>
#include <vector>

#include "tbvnonpara/analysis/refusal.hpp"
#include "tbvnonpara/analysis/run_test.hpp"
#include "tbvnonpara/analysis/user_range.hpp"
#include "tbvnonpara/companion/own/data_check.hpp"
#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/ordering/selection.hpp"
#include "tbvnonpara/workbook/sheet_range.hpp"

namespace TBVNonPara::analysis {

namespace {

double meanOf(const std::vector<double>& numbers) {
    double sum = 0;
    for (const double number : numbers) {
        sum += number;
    }
    return sum / static_cast<double>(numbers.size());
}

double valueOf(const Cut& cut, const std::vector<double>& numbers) {
    switch (cut.at) {
        case CutAt::Median:
            return medianOf(numbers);
        case CutAt::Mean:
            return meanOf(numbers);
        case CutAt::Number:
            break;
    }
    return cut.number;
}

/// The numbers below the header, texts that read as one among them as in every other test.
std::vector<double> numbersIn(const RangeRef& range, bool headers) {
    const ValueGrid cells = range->GetValue();
    std::vector<double> numbers;
    for (Index row = headers ? 2 : 1; row <= toIndex(cells.rows()); ++row) {
        const auto* const text = std::get_if<Text>(&cells(row, 1));
        numbers.push_back(text == nullptr ? std::get<double>(cells(row, 1))
                                          : readAsNumber(text->string()).value());
    }
    return numbers;
}

void requireNumbers(const RangeRef& range, bool headers) try {
    Long rows;
    Long numbers;
    Long blanks;
    bool blanksAllowed = false;
    createDataCheck()->CheckData(range, headers, rows, numbers, blanks, blanksAllowed);
} catch (const Error&) {
    refuseAsOwn();
}

std::string noteOn(const Cut& cut, const CutNumbers& numbers) {
    const std::string what = cut.at == CutAt::Median ? "the median "
                             : cut.at == CutAt::Mean ? "the mean "
                                                     : "";
    const std::string equal = numbers.equal == 0 || cut.equal != CutEqual::Drop
                                  ? ""
                                  : ", " + std::to_string(numbers.equal) + " equal left out";
    return "cut at " + what + toText(numbers.at) + ": " + std::to_string(numbers.above) + " above, " +
           std::to_string(numbers.below) + " below" + equal;
}

}  // namespace

CutNumbers cutNumbers(const std::vector<double>& numbers, const Cut& cut) {
    if (numbers.empty()) {
        refuse(tbvNPNoData, "There is no number to cut.");
    }
    CutNumbers result;
    result.at = valueOf(cut, numbers);
    if (!std::isfinite(result.at)) {
        refuse(static_cast<std::int32_t>(RuntimeError::Overflow),
               "The sum of the numbers is too large, so they cannot be cut at their mean; cut them at their "
               "median.");
    }
    const std::string at = toText(result.at);
    const Text above((cut.equal == CutEqual::Above ? "from " + at + " on" : "above " + at));
    const Text below((cut.equal == CutEqual::Below ? "up to " + at : "below " + at));
    std::vector<CellValue> sides;
    for (const double number : numbers) {
        const bool equal = number == result.at;
        result.equal += equal ? 1 : 0;
        if (equal && cut.equal == CutEqual::Drop) {
            continue;
        }
        const bool isAbove = number > result.at || (equal && cut.equal == CutEqual::Above);
        (isAbove ? result.above : result.below) += 1;
        sides.emplace_back(isAbove ? above : below);
    }
    if (sides.empty()) {
        refuse(tbvNPNoData,
               "All numbers equal " + at + ", where they are cut, so nothing lies above or below.");
    }
    if (result.above == 0 || result.below == 0) {
        refuse(tbvNPTooFewGroups,
               "No number lies " + std::string(result.above == 0 ? "above " : "below ") + at +
                   ", so there is one run. Cut the numbers at a value between the smallest and "
                   "the largest.");
    }
    result.sides = std::move(sides);
    return result;
}

CutSequence::CutSequence(const ObjectRef<workbook::EmbeddedApplication>& application, const Cut& cut,
                         const ChosenRanges& numbers)
    : m_Ranges(numbers), m_Sheet(*application, "Sides") {
    requireResultsOfFormulas(*application, numbers);
    const RangeRef held = application->GetRange(numbers.y);
    const workbook::SheetRange& range = workbook::ownRange(held);
    const Rectangle area = range.areas().front();
    if (range.areas().size() > 1 || area.columns() > 1) {
        refuse(tbvNPYRangeColumns,
               "A sequence is one column, but " + numbers.y + " is more; name one of them.");
    }
    requireNumbers(held, numbers.headers);
    m_Cut = cutNumbers(numbersIn(held, numbers.headers), cut);
    m_Note = noteOn(cut, m_Cut);

    const auto label =
        numbers.headers ? std::optional(range.sheet()->value(area.top, area.left)) : std::nullopt;
    m_Sheet.put(1, label, m_Cut.sides);
    const Rectangle sides{1, 1, static_cast<Index>(m_Cut.sides.size()) + (label ? 1 : 0), 1};
    m_Ranges.y = m_Sheet.address(sides);
    m_Ranges.shown = {m_Sheet.shownAs(sides, numbers.shown.empty()
                                                 ? shownInReports(*range.sheet(), range.areas())
                                                 : numbers.shown.front().shown)};
}

}  // namespace TBVNonPara::analysis
