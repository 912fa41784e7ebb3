#pragma once

#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "adapters/calc/functions/data_columns.hpp"

namespace TBVNonPara::calc {

/// A figure that is a number or a text, and its name; empty where these data have none.
struct FigureInFormula {
    std::string name;
    CellValue value;
};
using FiguresInFormula = std::vector<FigureInFormula>;

/// The figures of the report, which are there without long counts.
[[nodiscard]] FiguresInFormula reportFigures(const OfferedTest& test, const DataColumns& columns);

/// The figures of the report that are not among the details, and all of the details.
[[nodiscard]] FiguresInFormula figuresInFormula(const OfferedTest& test, const DataColumns& columns);

/// A figure by its name in any case; of one with a value, a low and a high, its name alone gives the value.
/// Throws FormulaFailure: not available where these data have none, else no value.
[[nodiscard]] const CellValue& figureNamed(const FiguresInFormula& figures, const std::string& name);

/// The figures of the last few data, so that formulas that ask for several figures of the same data compute
/// once. Formulas of several threads may ask.
class RecentFigures {
 public:
    [[nodiscard]] std::shared_ptr<const FiguresInFormula> of(const OfferedTest& test, DataColumns columns);

    /// One of them by its name, as figureNamed() gives it. The details are computed when the first figure is
    /// asked for that the report does not have.
    [[nodiscard]] CellValue named(const OfferedTest& test, DataColumns columns, const std::string& name);

 private:
    struct Entry {
        const OfferedTest* test = nullptr;
        DataColumns columns;
        FiguresInFormula ofTheReport = {};
        std::shared_ptr<const FiguresInFormula> all = {};
    };

    [[nodiscard]] Entry& entryOf(const OfferedTest& test, DataColumns columns);
    [[nodiscard]] static const std::shared_ptr<const FiguresInFormula>& allOf(Entry& entry);

    std::mutex m_Mutex;
    std::deque<Entry> m_Entries;
};

}  // namespace TBVNonPara::calc
