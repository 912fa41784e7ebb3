#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "adapters/calc/analysis_settings.hpp"
#include "adapters/calc/session.hpp"
#include "tbvnonpara/companion/CompanionLibrary.hpp"
#include "tbvnonpara/details/details.hpp"
#include "tbvnonpara/report/detail_page.hpp"

namespace TBVNonPara::calc {

/// The details that stand on a sheet behind the one of their report. They never keep a report from being
/// placed: what went wrong with them is told afterwards.
class DetailsBesideReport {
 public:
    DetailsBesideReport(std::shared_ptr<Session> session, CompanionLibrary companions,
                        const AnalysisSettings& settings);

    /// Reads the data of the settings' ranges, which the report may cover later.
    void read();
    /// Computes the details of a test that the engine has just computed. The watch is told how far long
    /// counts are, and may end them.
    void compute(const clsNonParaBO& engine, const CountWatch& watch);
    /// Writes them behind the report that was placed in this run.
    void write();

    /// Why there are none; empty where they were written.
    [[nodiscard]] const std::string& failure() const noexcept { return m_Failure; }

 private:
    void attempt(const auto& step);
    void widenFor(const SheetAreas& details) const;
    void readRange(DataRange range, const std::string& address);

    std::shared_ptr<Session> m_Session;
    CompanionLibrary m_Companions;
    const AnalysisSettings& m_Settings;
    std::vector<LabelledColumn> m_Columns;
    std::optional<DetailPage> m_Page;
    std::string m_Failure;
};

}  // namespace TBVNonPara::calc
