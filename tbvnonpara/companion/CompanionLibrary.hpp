#pragma once

#include <atomic>
#include <functional>
#include <memory>

#include "tbvnonpara/companion/ArrayUtility.hpp"
#include "tbvnonpara/companion/ContingencyAnalysis.hpp"
#include "tbvnonpara/companion/DataCheck.hpp"
#include "tbvnonpara/companion/ReportFormatter.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/host/Application.hpp"

namespace TBVNonPara {

class MannWhitneyCounts;

/// What an adapter hands to clsNonPara: the application object and a factory for each component.
///
///     CompanionLibrary companions = ownCompanions(application);
///     companions.createReportFormatter = [] { return makeObject<HouseFormatter>(); };
///
/// Each factory is called as often as a component is needed, on the thread of the request, and returns an
/// object of its own; without one, what needs the component fails with ObjectNotSet.
struct CompanionLibrary {
    ObjectRef<Application> application;                                 ///< the spreadsheet that is worked on
    std::function<ObjectRef<ArrayUtility>()> createArrayUtility;        ///< sorts and joins columns
    std::function<ObjectRef<DataCheck>()> createDataCheck;              ///< checks ranges
    std::function<ObjectRef<ReportFormatter>()> createReportFormatter;  ///< gives a report its look
    std::function<ObjectRef<ReportStyle>()> createReportStyle;          ///< the look of its sheet
    /// The statistics of the median test's table.
    std::function<ObjectRef<ContingencyAnalysis>()> createContingencyAnalysis;
    FormattingConstants constants;  ///< how headings stand and reports are pasted
    /// Exact counts to keep from run to run, for a client that makes many of them on one thread; none by
    /// itself.
    std::shared_ptr<MannWhitneyCounts> mannWhitneyCounts;
    /// Whether a run is going on: one flag for all requests that build their reports on the same scratch
    /// sheet.
    std::shared_ptr<std::atomic<bool>> running = std::make_shared<std::atomic<bool>>(false);
};

/// The library's own components on the given application, which sort large data on up to so many threads: the
/// figures are the same on any number. The application may be none for an engine alone: all tests run
/// then, with probabilities of its own, and what needs a sheet raises ObjectNotSet.
[[nodiscard]] TBVNONPARA_API CompanionLibrary ownCompanions(ObjectRef<Application> application,
                                                            std::size_t threads = 1);

}  // namespace TBVNonPara
