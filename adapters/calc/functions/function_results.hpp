#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/calc/functions/function_data.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/statistics/figures.hpp"

namespace TBVNonPara::calc {

/// P of a test as its report shows it. Raises NotComputable where there is none.
[[nodiscard]] double reportedProbability(TBVNPMethod method, TBVNPTails tails, const CellColumns& columns);

/// The figures of a test by the names that JSON has.
struct TestFigures {
    statistics::Figure report;
    statistics::Figure details;  ///< nothing where the data have none
};

/// Raises NotComputable where the report has no figures.
[[nodiscard]] std::shared_ptr<const TestFigures> figuresOf(TBVNPMethod method, const CellColumns& columns);

/// A figure by its name, "u", "effect.superiority", "groups.2.median.low", upper and lower case the same: the
/// report's where both have it. Raises NotComputable: #N/A where these data have no such figure, #VALUE! for
/// a name that is none or stands for several.
[[nodiscard]] CellValue figureNamed(const TestFigures& figures, std::string_view name);

/// A name and what it stands for.
struct FigureRow {
    std::string name;
    CellValue value;
};

/// All figures that these data have.
[[nodiscard]] std::vector<FigureRow> figureTable(const TestFigures& figures);

/// The figures of the last data asked for: several cells that ask for figures of the same data have them
/// counted once. One object belongs to one thread at a time.
class FigureCache {
 public:
    [[nodiscard]] std::shared_ptr<const TestFigures> figures(TBVNPMethod method, const CellColumns& columns);

 private:
    struct Entry {
        TBVNPMethod method = tbvNPMannU;
        CellColumns columns;
        std::shared_ptr<const TestFigures> figures;
    };
    std::vector<Entry> m_Entries;  ///< the one used last stands first
};

}  // namespace TBVNonPara::calc
