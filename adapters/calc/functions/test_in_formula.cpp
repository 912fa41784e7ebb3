#include "adapters/calc/functions/test_in_formula.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <span>

#include "adapters/calc/functions/formula_failure.hpp"
#include "tbvnonpara/engine/named_results.hpp"

namespace TBVNonPara::calc {

namespace {

struct AlternativeWord {
    std::string_view word;
    TBVNPTails tails;
    std::optional<TBVNPMethod> only;  ///< the one test that it is a word of; all tests without
};

// clang-format off
constexpr auto alternativeWords = std::to_array<AlternativeWord>({
    {"<>",       tbvNPTwoTailed,  {}},
    {"two",      tbvNPTwoTailed,  {}},
    {">",        tbvNPVar1GTVar2, {}},
    {"greater",  tbvNPVar1GTVar2, {}},
    {"<",        tbvNPVar1LTVar2, {}},
    {"less",     tbvNPVar1LTVar2, {}},
    {"positive", tbvNPVar1GTVar2, tbvNPSpearman},
    {"negative", tbvNPVar1LTVar2, tbvNPSpearman},
    {"fewer",    tbvNPVar1GTVar2, tbvNPWWRuns},
    {"more",     tbvNPVar1LTVar2, tbvNPWWRuns},
});
// clang-format on

/// Columns of unequal length end with empty cells, as on a sheet.
ValueGrid gridOf(std::span<const LabelledColumn> columns) {
    std::size_t rows = 0;
    for (const LabelledColumn& column : columns) {
        rows = std::max(rows, column.cells.size());
    }
    ValueGrid grid(Long(rows), Long(columns.size()));
    for (std::size_t column = 0; column < columns.size(); ++column) {
        std::ranges::copy(columns[column].cells, grid.column(column + 1).begin());
    }
    return grid;
}

}  // namespace

TBVNPTails tailsInFormula(TBVNPMethod method, const css::uno::Any& alternative) {
    if (!alternative.hasValue()) {
        return tbvNPTwoTailed;
    }
    OUString text;
    alternative >>= text;
    const std::string word = toUtf8(text.trim().toAsciiLowerCase());
    const auto* const found = std::ranges::find_if(alternativeWords, [&](const AlternativeWord& known) {
        return known.word == word && known.only.value_or(method) == method;
    });
    if (found == alternativeWords.end()) {
        throw FormulaFailure{valueFailure};
    }
    return found->tails;
}

void analyse(clsNonParaBO& engine, const OfferedTest& test, TBVNPTails tails, const DataColumns& columns) {
    const std::span all(columns);
    const bool two = takesSecondRange(test.shape) && columns.size() == 2;
    engine.LetYs(gridOf(two ? all.first(1) : all));
    engine.Letxs(two ? EngineInput(gridOf(all.subspan(1))) : EngineInput(CellValue(Empty())));
    engine.LetTails(tails);
    engine.LetMethod(test.method);
    engine.Analyse();
}

double probabilityInFormula(const OfferedTest& test, TBVNPTails tails, const DataColumns& columns) {
    clsNonParaBO engine(ownCompanions(nullptr));
    analyse(engine, test, tails, columns);
    const double P = reportedP(test.method, engine);
    if (!std::isfinite(P)) {
        throw FormulaFailure{divisionFailure};
    }
    return P;
}

}  // namespace TBVNonPara::calc
