#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "tbvnonpara/analysis/choices.hpp"
#include "tbvnonpara/analysis/ranges.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/report/detail_page.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::analysis {

/// A workbook with the user's file in it; the sheet that the choices name is the active one. What was done to
/// the data beyond reading them goes to `remark`. Raises the host's error for a file that cannot be read.
[[nodiscard]] TBVNONPARA_API ObjectRef<workbook::EmbeddedApplication> openFile(const Choices& choices,
                                                                               std::string* remark = nullptr);

/// The same for the contents of a file, under a name of their own.
[[nodiscard]] TBVNONPARA_API ObjectRef<workbook::EmbeddedApplication> openContents(
    std::string_view name, std::string_view bytes, const Choices& choices, std::string* remark = nullptr);

/// Where something was placed.
struct TBVNONPARA_API PlacedBlock {
    std::shared_ptr<workbook::Sheet> sheet;
    Rectangle block;

    /// "Results!$A$1:$D$9".
    [[nodiscard]] std::string address() const;
};

/// A finished analysis and where its report lies.
class TBVNONPARA_API FinishedTest {
 public:
    FinishedTest(ObjectRef<workbook::EmbeddedApplication> application, std::unique_ptr<clsNonPara> request);

    /// Puts another address into the lines that name the ranges.
    void rename(const ShownAddress& address);

    /// Writes details onto a sheet of their own behind the report's. Raises what the host refuses; the report
    /// stays as it is.
    void placeDetails(const DetailPage& page);
    /// Where the details lie; nothing where none were placed.
    [[nodiscard]] const std::optional<PlacedBlock>& details() const { return m_Details; }

    [[nodiscard]] const clsNonParaBO& engine() const { return m_Request->engine(); }
    /// "Results!$A$1:$D$9".
    [[nodiscard]] std::string address() const { return m_Report.address(); }
    [[nodiscard]] const workbook::Sheet& sheet() const { return *m_Report.sheet; }
    [[nodiscard]] const Rectangle& block() const { return m_Report.block; }

 private:
    ObjectRef<workbook::EmbeddedApplication> m_Application;
    std::unique_ptr<clsNonPara> m_Request;
    PlacedBlock m_Report;
    std::optional<PlacedBlock> m_Details;
};

/// Raises the host's error that names a cell of the ranges whose formula has no result in the file: the range
/// properties would replace it by one of their own, which names none.
TBVNONPARA_API void requireResultsOfFormulas(const workbook::EmbeddedApplication& application,
                                             const ChosenRanges& ranges);

/// Runs the test on the ranges; the report goes where the choices say, else to a new sheet "Results". Raises
/// what the library raises.
[[nodiscard]] TBVNONPARA_API FinishedTest runTest(const ObjectRef<workbook::EmbeddedApplication>& application,
                                                  const Choices& choices, const ChosenRanges& ranges);

/// The same with components of one's own on the application.
[[nodiscard]] TBVNONPARA_API FinishedTest runTest(const ObjectRef<workbook::EmbeddedApplication>& application,
                                                  const CompanionLibrary& companions, const Choices& choices,
                                                  const ChosenRanges& ranges);

}  // namespace TBVNonPara::analysis
