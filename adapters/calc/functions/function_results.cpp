#include "adapters/calc/functions/function_results.hpp"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "tbvnonpara/companion/CompanionLibrary.hpp"
#include "tbvnonpara/details/details.hpp"
#include "tbvnonpara/details/json.hpp"
#include "tbvnonpara/engine/named_results.hpp"

namespace TBVNonPara::calc {

namespace {

using statistics::Figure;
using statistics::FigureBlock;

const OfferedTest& offeredTest(TBVNPMethod method) {
    return *std::ranges::find(offeredTests(), method, &OfferedTest::method);
}

/// Columns side by side, the shorter ones with blanks below.
ValueGrid gridOf(std::span<const std::vector<CellValue>> columns) {
    std::size_t rows = 0;
    for (const auto& column : columns) {
        rows = std::max(rows, column.size());
    }
    ValueGrid grid(Long(rows), Long(columns.size()));
    for (std::size_t c = 0; c < columns.size(); ++c) {
        std::ranges::copy(columns[c], grid.column(Long(c + 1)).begin());
    }
    return grid;
}

/// What the report refuses before the engine sees it.
void requireData(const OfferedTest& test, const CellColumns& columns) {
    const bool one = test.shape == DataShape::CodesOrPairs || test.shape == DataShape::Sequence;
    if (!one && columns.size() < 2) {
        throw NotComputable{CellError::Value};
    }
    if (std::ranges::any_of(columns, [](const auto& column) { return column.empty(); })) {
        throw NotComputable{CellError::DivisionByZero};
    }
    const auto isSign = [](const CellValue& cell) {
        const auto* number = std::get_if<double>(&cell);
        return number != nullptr && (*number == 1 || *number == -1 || *number == 0);
    };
    if (test.method == tbvNPSign && columns.size() == 1 && !std::ranges::all_of(columns.front(), isSign)) {
        throw NotComputable{CellError::Value};
    }
}

/// Runs a test; an error of the library becomes that of a cell.
void analyse(clsNonParaBO& engine, const OfferedTest& test, TBVNPTails tails, const CellColumns& columns) {
    requireData(test, columns);
    engine.LetMethod(test.method);
    engine.LetTails(tails);
    const std::size_t inYs = takesManyColumns(test.shape) ? columns.size() : 1;
    engine.LetYs(gridOf(std::span(columns).first(inYs)));
    // A test of one variable finds a blank second one, as it does in a request.
    engine.Letxs(inYs < columns.size() ? EngineInput(gridOf(std::span(columns).subspan(inYs))) : CellValue());
    try {
        engine.Analyse();
    } catch (const Error& error) {
        // Of equal values for example: 0 / 0, or the root of what rounding left below 0.
        constexpr std::array undefinedBy{RuntimeError::DivisionByZero, RuntimeError::Overflow,
                                         RuntimeError::InvalidProcedureCall};
        const bool undefined =
            std::ranges::find(undefinedBy, static_cast<RuntimeError>(error.number())) != undefinedBy.end();
        throw NotComputable{undefined ? CellError::DivisionByZero : CellError::Value};
    }
}

Figure figureOf(const ResultValue& value) {
    return std::visit(
        [](const auto& held) -> Figure {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::same_as<Held, bool>) {
                return {static_cast<std::int64_t>(held ? 1 : 0)};
            } else if constexpr (std::same_as<Held, Long>) {
                return {static_cast<std::int64_t>(held.value())};
            } else if constexpr (std::same_as<Held, double> || std::same_as<Held, std::string>) {
                return {held};
            } else if constexpr (std::same_as<Held, std::vector<double>>) {
                return statistics::figureOf(held);
            } else {
                statistics::FigureList list;
                for (const auto& each : held.elements()) {
                    if constexpr (std::same_as<Held, Array<Long>>) {
                        list.push_back({static_cast<std::int64_t>(each.value())});
                    } else {
                        list.push_back({toText(each)});
                    }
                }
                return {std::move(list)};
            }
        },
        value);
}

std::vector<LabelledColumn> labelled(const CellColumns& columns) {
    std::vector<LabelledColumn> named;
    for (const auto& column : columns) {
        named.push_back({std::to_string(named.size() + 1), column});
    }
    return named;
}

}  // namespace

double reportedProbability(TBVNPMethod method, TBVNPTails tails, const CellColumns& columns) {
    clsNonParaBO engine(ownCompanions({}));
    analyse(engine, offeredTest(method), tails, columns);
    return reportedP(method, engine);
}

std::shared_ptr<const TestFigures> figuresOf(TBVNPMethod method, const CellColumns& columns) {
    const OfferedTest& test = offeredTest(method);
    clsNonParaBO engine(ownCompanions({}));
    analyse(engine, test, tbvNPTwoTailed, columns);
    FigureBlock report;
    for (const NamedResult& result : namedResults(method, engine)) {
        report.push_back({result.name, figureOf(result.value)});
    }
    TestFigures figures{{std::move(report)}, {}};
    try {
        figures.details = detailFigures(detailsOf(test, tbvNPTwoTailed, {}, labelled(columns), engine));
    } catch (const std::invalid_argument&) {
        // The report has its figures all the same.
    }
    return std::make_shared<const TestFigures>(std::move(figures));
}

std::shared_ptr<const TestFigures> FigureCache::figures(TBVNPMethod method, const CellColumns& columns) {
    constexpr std::size_t most = 8;
    const auto known = std::ranges::find_if(
        m_Entries, [&](const Entry& entry) { return entry.method == method && entry.columns == columns; });
    if (known != m_Entries.end()) {
        std::rotate(m_Entries.begin(), known, known + 1);
    } else {
        m_Entries.insert(m_Entries.begin(), {method, columns, figuresOf(method, columns)});
        m_Entries.resize(std::min(most, m_Entries.size()));
    }
    return m_Entries.front().figures;
}

}  // namespace TBVNonPara::calc
