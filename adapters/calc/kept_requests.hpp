#pragma once

#include <optional>

#include "adapters/calc/analysis_settings.hpp"
#include "adapters/calc/session.hpp"

namespace TBVNonPara::calc {

/// A report that its document keeps the request of.
struct KeptRequest {
    SheetAreas report;
    AnalysisSettings settings;  ///< for the same cells of the data, wherever they are now, to be placed there
    bool rangesLost = false;    ///< cells of the data, or their sheet, were deleted
    bool changed = false;       ///< cells of the report are others than those that were placed
};

/// Keeps the request of a report in its document, as a name that is offered nowhere as a range and is saved
/// with it in whatever format. It goes with the undo step of the report.
class RequestKeeper {
 public:
    /// Finds the ranges of the settings, which may be named without their sheet, before the report's own
    /// sheet comes to the top.
    RequestKeeper(const DocumentRef& document, const AnalysisSettings& settings);

    /// For the report that was placed in this run, in the place of those whose cells it took. A report whose
    /// request cannot be kept is a report all the same.
    void write(Session& session) const;

 private:
    AnalysisSettings m_Settings;
    std::vector<SheetAreas> m_Ranges;
};

/// The request of the report that a cell belongs to.
[[nodiscard]] std::optional<KeptRequest> requestAt(const DocumentRef& document, const SheetRef& sheet,
                                                   const CellArea& cell);

}  // namespace TBVNonPara::calc
