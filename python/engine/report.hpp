#pragma once

#include <optional>
#include <string>
#include <vector>

#include "python/engine/tested.hpp"
#include "tbvnonpara/analysis/run_test.hpp"
#include "tbvnonpara/rendering/data_picture.hpp"
#include "tbvnonpara/rendering/report_block.hpp"

namespace TBVNonPara::python {

/// The report of a test with its details, in every form that it is written in. It is made in a workbook in
/// memory, on whose sheet "Data" the columns stand.
class Report {
 public:
    /// The columns of the test with those of the second variable, if any, last; without what is missing.
    /// `labels` are those of the details, `control` is one of them or empty. Where there can be no report,
    /// there are details alone.
    Report(const Tested& tested, const Choices& choices, const std::vector<LabelledColumn>& columns,
           std::vector<std::string> labels, std::string control, bool descriptives);

    /// As the program shows it, details below; folded at a width, 0 for none.
    [[nodiscard]] std::string text(std::size_t width) const;
    [[nodiscard]] std::string html() const;
    [[nodiscard]] std::string csv() const;
    [[nodiscard]] std::string json() const;
    /// The bytes of a workbook; the sheet with the data is the last, where it is asked for.
    [[nodiscard]] std::string xlsx(bool withData);

    /// The details as JSON.
    [[nodiscard]] std::string details() const;

 private:
    void make(const std::vector<LabelledColumn>& columns, bool descriptives);
    [[nodiscard]] const analysis::FinishedTest& finished() const;
    [[nodiscard]] rendering::ReportBlock block() const;

    Details m_Details;
    rendering::PictureData m_Picture;
    std::optional<analysis::FinishedTest> m_Finished;
    std::string m_Problem;  ///< why there is no report
};

/// Writes a file that appears whole or not at all. Raises what SavedFile raises.
void saveFile(const std::string& path, std::string_view bytes, bool overwrite);

}  // namespace TBVNonPara::python
