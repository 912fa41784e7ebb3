#pragma once

#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "adapters/calc/analysis_settings.hpp"
#include "adapters/calc/session.hpp"
#include "tbvnonpara/companion/CompanionLibrary.hpp"
#include "tbvnonpara/details/details.hpp"
#include "tbvnonpara/rendering/pictures/drawn_data.hpp"
#include "tbvnonpara/report/detail_page.hpp"

namespace TBVNonPara::calc {

/// The details and the picture of the data that stand on a sheet behind the one of their report, as far as
/// they are wanted. They never keep a report from being placed: what went wrong with them is told afterwards.
class DetailsBesideReport {
 public:
    DetailsBesideReport(std::shared_ptr<Session> session, CompanionLibrary companions,
                        const AnalysisSettings& settings);

    /// Reads the data of the settings' ranges, which the report may cover later.
    void read();
    /// Computes the details of a test that the engine has just computed, and draws its data. The watch is
    /// told how far long counts are, and may end them.
    void compute(const clsNonParaBO& engine, const CountWatch& watch);
    /// Writes them behind the report that was placed in this run.
    void write();

    /// Why there are no details, or no picture; empty where they were written, or are not wanted.
    [[nodiscard]] const std::string& failure() const noexcept { return m_Details.failure; }
    [[nodiscard]] const std::string& pictureFailure() const noexcept { return m_Picture.failure; }

 private:
    /// One of the two, and why it failed.
    struct Part {
        bool wanted = false;
        std::string failure;

        [[nodiscard]] bool comes() const noexcept { return wanted && failure.empty(); }
    };

    static void attempt(std::initializer_list<Part*> parts, const auto& step);
    [[nodiscard]] DetailPage page() const;
    [[nodiscard]] CellArea cornerOfThePicture(const SheetAreas& details) const;
    void writePicture(const SheetAreas& details) const;
    void widenFor(const SheetAreas& details) const;
    [[nodiscard]] std::vector<LabelledColumn> columnsAt(DataRange range, const std::string& address) const;

    std::shared_ptr<Session> m_Session;
    CompanionLibrary m_Companions;
    const AnalysisSettings& m_Settings;
    rendering::PictureData m_Data;
    std::optional<DetailPage> m_Page;
    rendering::Drawing m_Drawing;
    Part m_Details;
    Part m_Picture;
};

}  // namespace TBVNonPara::calc
