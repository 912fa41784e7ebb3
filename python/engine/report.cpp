#include "python/engine/report.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <system_error>

#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/details/json.hpp"
#include "tbvnonpara/details/page.hpp"
#include "tbvnonpara/details/text.hpp"
#include "tbvnonpara/engine/named_results.hpp"
#include "tbvnonpara/files/saving/saved_file.hpp"
#include "tbvnonpara/files/saving/xlsx_writer.hpp"
#include "tbvnonpara/rendering/details_csv.hpp"
#include "tbvnonpara/rendering/details_html.hpp"
#include "tbvnonpara/rendering/html_report.hpp"
#include "tbvnonpara/rendering/json_report.hpp"
#include "tbvnonpara/rendering/output.hpp"
#include "tbvnonpara/rendering/text_report.hpp"

namespace TBVNonPara::python {

namespace {

constexpr std::string_view dataSheet = "Data";

/// What is written, kept in memory.
class Written {
 public:
    Written() : m_File(open_memstream(&m_Bytes, &m_Size)) {
        if (m_File == nullptr) {
            throw std::bad_alloc();
        }
    }
    Written(const Written&) = delete;
    Written& operator=(const Written&) = delete;
    ~Written() {
        if (m_File != nullptr) {
            std::fclose(m_File);
        }
        std::free(m_Bytes);
    }

    [[nodiscard]] std::FILE* file() const { return m_File; }
    [[nodiscard]] std::string text() {
        std::FILE* const file = std::exchange(m_File, nullptr);
        if (std::fclose(file) != 0) {
            throw std::system_error(errno, std::generic_category());
        }
        return {m_Bytes, m_Size};
    }

 private:
    char* m_Bytes = nullptr;
    std::size_t m_Size = 0;
    std::FILE* m_File;
};

template <typename Write>
std::string written(const Write& write) {
    Written memory;
    rendering::Output output(memory.file());
    write(output);
    output.finish();
    return memory.text();
}

/// The columns below their labels; raises an error where they do not fit on a sheet.
workbook::CellStore cellsOf(const std::vector<LabelledColumn>& columns) {
    workbook::CellStore cells;
    if (columns.size() > static_cast<std::size_t>(sheetColumns)) {
        throw Error(tbvNPBadYRange, "A sheet has no room for " + std::to_string(columns.size()) + " groups.");
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].cells.size() >= static_cast<std::size_t>(sheetRows)) {
            throw Error(tbvNPBadYRange,
                        "A sheet has no room for " + std::to_string(columns[i].cells.size()) + " values.");
        }
        const auto column = static_cast<Index>(i) + 1;
        cells.set(1, column, Text(columns[i].label));
        cells.write(2, column, columns[i].cells);
    }
    return cells;
}

std::string addressOf(const std::vector<LabelledColumn>& columns, std::size_t first, std::size_t last) {
    std::size_t rows = 0;
    for (std::size_t i = first; i < last; ++i) {
        rows = std::max(rows, columns[i].cells.size());
    }
    return std::string(dataSheet) + '!' +
           plainAddress(
               {1, static_cast<Index>(first) + 1, static_cast<Index>(rows) + 1, static_cast<Index>(last)});
}

}  // namespace

Report::Report(const Tested& tested, const Choices& choices, const std::vector<LabelledColumn>& columns,
               std::vector<std::string> labels, std::string control, bool descriptives)
    : m_Details{tested.test,
                tested.tails,
                {.confidence = choices.options.confidence,
                 .adjustment = choices.options.adjustment,
                 .trend = choices.options.trend,
                 .control = std::move(control),
                 .permutations = choices.options.permutations,
                 .seed = choices.options.seed},
                std::move(labels),
                tested.result,
                tested.pvalue()} {
    try {
        make(columns, descriptives);
        m_Details.reportedP = reportedP(tested.test->method, m_Finished->engine());
    } catch (const Error& reason) {
        m_Problem = reason.description();
    }
}

void Report::make(const std::vector<LabelledColumn>& columns, bool descriptives) {
    const auto application = workbook::makeApplication();
    application->addSheet(dataSheet, cellsOf(columns));
    const OfferedTest& test = *m_Details.test;
    const bool twoVariables = takesSecondRange(test.shape) && columns.size() == 2;
    const std::size_t first = twoVariables ? 1 : columns.size();
    analysis::ChosenRanges ranges;
    ranges.headers = true;
    ranges.y = addressOf(columns, 0, first);
    ranges.x = twoVariables ? addressOf(columns, 1, 2) : "";
    m_Picture = rendering::pictureData(*application, ranges.y, ranges.x, ranges.headers);
    analysis::Choices chosen;
    chosen.test = &test;
    chosen.tails = m_Details.tails;
    chosen.descriptives = descriptives && test.descriptives;
    m_Finished = analysis::runTest(application, chosen, ranges);
}

const analysis::FinishedTest& Report::finished() const {
    if (!m_Finished) {
        throw Error(tbvNPBadYRange, "There is no report: " + m_Problem);
    }
    return *m_Finished;
}

rendering::ReportBlock Report::block() const {
    return {finished().sheet(), finished().block()};
}

std::string Report::text(std::size_t width) const {
    return written([&](rendering::Output& output) {
        if (m_Finished) {
            rendering::writeText(block(), false, output, width);
        } else {
            output.write("There is no report: " + m_Problem + '\n');
        }
        output.write(detailsText(detailPage(m_Details), width));
    });
}

std::string Report::html() const {
    return written([&](rendering::Output& output) {
        rendering::writeHtml(
            block(), m_Details.test->title,
            rendering::dataPicture(m_Details.test->method, m_Picture, finished().engine(), &m_Details),
            output, rendering::detailsInHtml(m_Details));
    });
}

std::string Report::csv() const {
    return written([&](rendering::Output& output) {
        rendering::writeCsv(block(), output);
        rendering::writeDetailsCsv(m_Details, output);
    });
}

std::string Report::json() const {
    return written([&](rendering::Output& output) {
        rendering::writeJson(m_Details.test->name, finished().address(), block(),
                             namedResults(m_Details.test->method, finished().engine()), output,
                             {nullptr, &m_Details, {}});
    });
}

std::string Report::xlsx(bool withData) {
    if (!finished().details()) {
        m_Finished->placeDetails(detailPage(m_Details));
    }
    const analysis::PlacedBlock& details = *m_Finished->details();
    std::vector<workbook::WrittenSheet> sheets = {{&m_Finished->sheet(), m_Finished->block()},
                                                  {details.sheet.get(), details.block}};
    const std::shared_ptr<workbook::Sheet> data = m_Finished->sheet().book()->sheet(dataSheet);
    if (withData && data->usedArea()) {
        sheets.push_back({data.get(), *data->usedArea()});
    }
    return workbook::newWorkbook(sheets);
}

std::string Report::details() const {
    return figureInJson(detailFigures(m_Details));
}

void saveFile(const std::string& path, std::string_view bytes, bool overwrite) {
    const auto existing = overwrite ? workbook::ExistingFile::Replace : workbook::ExistingFile::Keep;
    workbook::requireSavable(path, existing);
    workbook::SavedFile file(path, existing);
    file.write(bytes);
    file.keep();
}

}  // namespace TBVNonPara::python
