#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tbvnonpara/companion/own/array_utility.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"
#include "tests/support/fake_functions.hpp"
#include "tests/support/raised.hpp"

/// What a test of the engine stands on: worksheet functions that can be told to fail, an application that has
/// nothing else, and cells written as they look.
namespace TBVNonPara::Support {

/// An application without a sheet: the engine asks for nothing but the worksheet functions.
class FakeApplication : public Application {
 public:
    [[nodiscard]] RangeRef GetRange(std::string_view) const override { return {}; }
    [[nodiscard]] RangeRef GetRange(const RangeRef&, const RangeRef&) const override { return {}; }
    [[nodiscard]] WorkbookRef GetWorkbooks(std::string_view) const override { return {}; }
    [[nodiscard]] WorksheetRef AddWorksheets() override { return {}; }
    void LetScreenUpdating(bool) override {}
    [[nodiscard]] const WorksheetFunction& GetWorksheetFunction() const override { return functions; }

    FakeFunctions functions;
};

/// The engine's companions on an application; a test adds the factories that it needs besides the array
/// utility.
inline CompanionLibrary engineCompanions(
    std::shared_ptr<FakeApplication> application = std::make_shared<FakeApplication>()) {
    CompanionLibrary companions;
    companions.application = ObjectRef<Application>(std::move(application));
    companions.createArrayUtility = [] { return createArrayUtility(); };
    return companions;
}

/// One cell as it looks in a test: 1, 2.5, "text", blank, true.
struct Cell {
    Cell(int number) : value(static_cast<double>(number)) {}
    Cell(double number) : value(number) {}
    Cell(const char* text) : value(Text(text)) {}
    Cell(bool truth) : value(truth) {}
    Cell(CellValue cell) : value(std::move(cell)) {}
    CellValue value;
};
inline const Cell blank{CellValue(Empty())};

using Cells = std::vector<Cell>;

/// One column of cells.
inline ValueGrid column(const Cells& cells) {
    ValueGrid grid(Long(cells.size()), 1);
    for (Long i = 1; i <= grid.rows(); ++i) {
        grid(i, 1) = cells[static_cast<std::size_t>(toIndex(i) - 1)].value;
    }
    return grid;
}

/// Columns of cells side by side; the shorter ones end in blanks.
inline ValueGrid columns(const std::vector<Cells>& samples) {
    ValueGrid grid(0, 0);
    for (const Cells& sample : samples) {
        grid = createArrayUtility()->JoinColumns(grid, column(sample));
    }
    return grid;
}

/// Number and source of the error that an action raises as one text: "9 Line 0 in
/// TBVNonPara.clsNonParaBO.AnalyseWilcoxon"; "none" without an error.
inline std::string failureOf(const std::function<void()>& action) {
    const std::optional<Error> error = errorOf(action);
    return error ? std::to_string(error->number()) + ' ' + error->source() : "none";
}

/// An engine that is loaded and ready to analyse.
struct LoadedEngine {
    LoadedEngine(TBVNPMethod method, TBVNPTails tails, EngineInput ys, EngineInput xs)
        : engine(engineCompanions(application)) {
        load(method, tails, std::move(ys), std::move(xs));
    }

    void load(TBVNPMethod method, TBVNPTails tails, EngineInput ys, EngineInput xs) {
        engine.LetMethod(method);
        engine.LetTails(tails);
        engine.LetYs(std::move(ys));
        engine.Letxs(std::move(xs));
    }

    std::shared_ptr<FakeApplication> application = std::make_shared<FakeApplication>();
    clsNonParaBO engine;
};

/// The elements of an array and the rows of a grid, for comparison with what a test writes down.
template <typename Element>
std::vector<double> numbers(const Array<Element>& array) {
    std::vector<double> result;
    for (const Element& element : array.elements()) {
        if constexpr (std::is_same_v<Element, Long>) {
            result.push_back(toDouble(element));
        } else {
            result.push_back(element);
        }
    }
    return result;
}

inline std::vector<std::vector<double>> rowsOf(const Grid<double>& grid) {
    std::vector<std::vector<double>> rows;
    for (Long i = 1; i <= grid.rows(); ++i) {
        auto& row = rows.emplace_back();
        for (Long c = 1; c <= grid.columns(); ++c) {
            row.push_back(grid(i, c));
        }
    }
    return rows;
}

/// A grid of numbers, as the engine's tables are.
using Rows = std::vector<std::vector<double>>;

}  // namespace TBVNonPara::Support
