#pragma once

#include <string>
#include <vector>

#include "adapters/calc/analysis_settings.hpp"
#include "adapters/calc/session.hpp"

namespace TBVNonPara::calc {

/// Why the figures of a report stay numbers.
enum class LiveObstacle {
    None,
    GroupsInColumn,
    VisibleRows,
    UnrankedZeros,
    MissingInSequence,
    SeveralAreas,
    OverTheData,
    NoAutomaticCalculation
};

/// What the settings alone say: functions of cells take columns with all of their rows, rank zero
/// differences, and take a text in a sequence for a category.
[[nodiscard]] LiveObstacle obstacleToLive(const AnalysisSettings& settings) noexcept;

/// What became of the figures: the obstacle that kept all of them numbers, or the headings of those that a
/// formula does not give.
struct LiveOutcome {
    LiveObstacle obstacle = LiveObstacle::None;
    std::vector<std::string> numbers;
};

/// The figures of a report's test as formulas that follow the data.
class LiveFigures {
 public:
    /// Finds the ranges of the settings, which may be named without their sheet, before the report's own
    /// sheet comes to the top.
    LiveFigures(const DocumentRef& document, const AnalysisSettings& settings);

    /// Writes the formulas into the report that was placed in this run. One that does not show the report's
    /// figure goes again.
    [[nodiscard]] LiveOutcome write(Session& session) const;

 private:
    [[nodiscard]] bool areVariables() const;
    [[nodiscard]] bool liesUnder(const SheetAreas& report) const;
    [[nodiscard]] std::string references() const;
    [[nodiscard]] std::string lastArgument(const std::string& figure) const;
    [[nodiscard]] OUString formulaOf(const std::string& figure) const;

    const AnalysisSettings& m_Settings;
    std::vector<SheetAreas> m_Ranges;
};

}  // namespace TBVNonPara::calc
