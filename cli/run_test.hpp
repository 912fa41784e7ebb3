#pragma once

#include <memory>
#include <string>

#include "cli/arguments.hpp"
#include "cli/columns.hpp"
#include "cli/report_block.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::cli {

/// A workbook with the user's file in it; the sheet that the options name is the active one. Raises the
/// host's error for a file that cannot be read.
[[nodiscard]] ObjectRef<workbook::EmbeddedApplication> openFile(const Arguments& arguments);

/// A finished analysis and where its report lies.
class FinishedTest {
 public:
    FinishedTest(ObjectRef<workbook::EmbeddedApplication> application, std::unique_ptr<clsNonPara> request);

    [[nodiscard]] const clsNonParaBO& engine() const { return m_Request->engine(); }
    /// "Results!$A$1:$D$9".
    [[nodiscard]] std::string address() const;
    [[nodiscard]] const workbook::Sheet& sheet() const { return *m_Sheet; }
    [[nodiscard]] const workbook::Rectangle& block() const { return m_Block; }
    [[nodiscard]] ReportBlock report() const { return {m_Sheet->values(), m_Sheet->formats(), m_Block}; }

 private:
    ObjectRef<workbook::EmbeddedApplication> m_Application;
    std::unique_ptr<clsNonPara> m_Request;
    std::shared_ptr<workbook::Sheet> m_Sheet;
    workbook::Rectangle m_Block;
};

/// Runs the test on the ranges; the report goes where the command line says, else to a new
/// sheet "Results". Raises what the library raises.
[[nodiscard]] FinishedTest runTest(const ObjectRef<workbook::EmbeddedApplication>& application,
                                   const Arguments& arguments, const ChosenRanges& ranges);

}  // namespace TBVNonPara::cli
