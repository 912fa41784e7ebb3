#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "tbvnonpara/analysis/choices.hpp"
#include "tbvnonpara/analysis/ranges.hpp"
#include "tbvnonpara/request/clsNonPara.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::analysis {

/// A workbook with the user's file in it; the sheet that the choices name is the active one. What was done to
/// the data beyond reading them goes to `remark`. Raises the host's error for a file that cannot be read.
[[nodiscard]] ObjectRef<workbook::EmbeddedApplication> openFile(const Choices& choices,
                                                                std::string* remark = nullptr);

/// The same for the contents of a file, under a name of their own.
[[nodiscard]] ObjectRef<workbook::EmbeddedApplication> openContents(std::string_view name,
                                                                    std::string_view bytes,
                                                                    const Choices& choices,
                                                                    std::string* remark = nullptr);

/// A finished analysis and where its report lies.
class FinishedTest {
 public:
    FinishedTest(ObjectRef<workbook::EmbeddedApplication> application, std::unique_ptr<clsNonPara> request);

    /// Puts another address into the lines that name the ranges.
    void rename(const ShownAddress& address);

    [[nodiscard]] const clsNonParaBO& engine() const { return m_Request->engine(); }
    /// "Results!$A$1:$D$9".
    [[nodiscard]] std::string address() const;
    [[nodiscard]] const workbook::Sheet& sheet() const { return *m_Sheet; }
    [[nodiscard]] const Rectangle& block() const { return m_Block; }

 private:
    ObjectRef<workbook::EmbeddedApplication> m_Application;
    std::unique_ptr<clsNonPara> m_Request;
    std::shared_ptr<workbook::Sheet> m_Sheet;
    Rectangle m_Block;
};

/// Raises the host's error that names a cell of the ranges whose formula has no result in the file: the range
/// properties would replace it by one of their own, which names none.
void requireResultsOfFormulas(const workbook::EmbeddedApplication& application, const ChosenRanges& ranges);

/// Runs the test on the ranges; the report goes where the choices say, else to a new sheet "Results". Raises
/// what the library raises.
[[nodiscard]] FinishedTest runTest(const ObjectRef<workbook::EmbeddedApplication>& application,
                                   const Choices& choices, const ChosenRanges& ranges);

/// The same with components of one's own on the application.
[[nodiscard]] FinishedTest runTest(const ObjectRef<workbook::EmbeddedApplication>& application,
                                   const CompanionLibrary& companions, const Choices& choices,
                                   const ChosenRanges& ranges);

}  // namespace TBVNonPara::analysis
