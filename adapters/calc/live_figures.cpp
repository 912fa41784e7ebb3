#include "adapters/calc/live_figures.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <com/sun/star/sheet/XCalculatable.hpp>

#include "adapters/calc/figure_cells.hpp"
#include "adapters/calc/functions/functions_object.hpp"
#include "adapters/calc/reading.hpp"
#include "adapters/calc/selection.hpp"
#include "tbvnonpara/request/tests_offered.hpp"

namespace TBVNonPara::calc {

namespace {

using FigureRef = Reference<css::table::XCell>;

const OfferedTest& offeredTest(TBVNPMethod method) {
    return *std::ranges::find(offeredTests(), method, &OfferedTest::method);
}

/// What the methods of a test's two functions begin with.
std::string functionOfTest(TBVNPMethod method) {
    constexpr std::array names{"mannWhitney", "wilcoxon", "spearman",      "sign",
                               "median",      "friedman", "kruskalWallis", "runs"};
    return names.at(static_cast<std::size_t>(method));
}

/// The report has its probabilities from the spreadsheet's distributions, the functions have them from the
/// library's: those differ in the last digits, and near 0 by what 1 - P loses.
bool isSameFigure(double formula, double number) {
    constexpr double relative = 1e-9;
    constexpr double absolute = 1e-12;
    return std::abs(formula - number) <= absolute + relative * std::abs(number);
}

/// Whether the formula shows the cell's number; where it does not the number is back.
bool replaceByFormula(const FigureRef& cell, const OUString& formula) {
    const double number = cell->getValue();
    try {
        cell->setFormula(formula);
        if (cell->getError() == 0 && isSameFigure(cell->getValue(), number)) {
            return true;
        }
    } catch (const css::uno::Exception&) {
        // A formula that the spreadsheet does not take is none.
    }
    cell->setValue(number);
    return false;
}

}  // namespace

LiveObstacle obstacleToLive(const AnalysisSettings& settings) noexcept {
    return settings.groupsInOneColumn                               ? LiveObstacle::GroupsInColumn
           : settings.visibleRowsOnly                               ? LiveObstacle::VisibleRows
           : settings.ignoreTies                                    ? LiveObstacle::UnrankedZeros
           : settings.omitMissing && settings.method == tbvNPWWRuns ? LiveObstacle::MissingInSequence
                                                                    : LiveObstacle::None;
}

LiveFigures::LiveFigures(const DocumentRef& document, const AnalysisSettings& settings)
    : m_Settings(settings) {
    if (!settings.liveFigures || obstacleToLive(settings) != LiveObstacle::None) {
        return;
    }
    for (const std::string& address : {settings.firstRange, settings.secondRange}) {
        if (!address.empty()) {
            m_Ranges.push_back(resolve(document, activeSheet(document), address));
        }
    }
}

/// Functions of two variables take a column for each.
bool LiveFigures::areVariables() const {
    return takesGroups(m_Settings.method) || std::ranges::all_of(m_Ranges, [](const SheetAreas& range) {
               return range.areas.size() == 1 && range.areas.front().columns() == 1;
           });
}

bool LiveFigures::liesUnder(const SheetAreas& report) const {
    return std::ranges::any_of(m_Ranges, [&](const SheetAreas& range) {
        return nameOf(range.sheet) == nameOf(report.sheet) &&
               std::ranges::any_of(range.areas,
                                   [&](const CellArea& area) { return area.overlaps(report.areas.front()); });
    });
}

std::string LiveFigures::references() const {
    std::string list;
    for (const SheetAreas& range : m_Ranges) {
        for (CellArea area : range.areas) {
            area.top += m_Settings.headers && area.top < area.bottom ? 1 : 0;
            list += list.empty() ? "" : ";";
            list += userAddress(range.sheet, area);
        }
    }
    return list;
}

/// What stands in quotes behind the ranges: the name of a figure, or the alternative.
std::string LiveFigures::lastArgument(const std::string& figure) const {
    if (!figure.empty() || !offeredTest(m_Settings.method).tails || m_Settings.tails == tbvNPTwoTailed) {
        return figure;
    }
    return m_Settings.tails == tbvNPVar1GTVar2 ? ">" : "<";
}

OUString LiveFigures::formulaOf(const std::string& figure) const {
    std::string formula = "=";
    formula += FunctionsObject::serviceName;
    formula += '.' + functionOfTest(m_Settings.method) + (figure.empty() ? "Test(" : "Details(");
    formula += references();
    if (const std::string last = lastArgument(figure); !last.empty()) {
        formula += ";\"" + last + '"';
    }
    return fromUtf8(formula + ')');
}

LiveOutcome LiveFigures::write(Session& session) const {
    if (!m_Settings.liveFigures) {
        return {};
    }
    if (const LiveObstacle obstacle = obstacleToLive(m_Settings); obstacle != LiveObstacle::None) {
        return {obstacle, {}};
    }
    const SheetAreas& report = session.placed();
    if (!areVariables()) {
        return {LiveObstacle::SeveralAreas, {}};
    }
    if (liesUnder(report)) {
        return {LiveObstacle::OverTheData, {}};
    }
    if (!query<css::sheet::XCalculatable>(report.document)->isAutomaticCalculationEnabled()) {
        return {LiveObstacle::NoAutomaticCalculation, {}};
    }
    session.beforeChange(report.document);
    const CellArea& block = report.areas.front();
    LiveOutcome outcome;
    for (const FigureCell& found :
         figureCells(readCells(report.document, report.sheet, block), m_Settings.method, m_Settings.tails)) {
        const FigureRef cell =
            report.sheet->getCellByPosition(block.left + static_cast<std::int32_t>(found.column.value()) - 1,
                                            block.top + static_cast<std::int32_t>(found.row.value()) - 1);
        if (!replaceByFormula(cell, formulaOf(found.figure))) {
            outcome.numbers.push_back(found.heading);
        }
    }
    return outcome;
}

}  // namespace TBVNonPara::calc
