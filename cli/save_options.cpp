#include "cli/save_options.hpp"

#include <array>
#include <filesystem>
#include <fmt/format.h>

#include "tbvnonpara/core/utf8.hpp"

namespace TBVNonPara::cli {

namespace {

struct Ending {
    std::string_view text;
    OutputFormat format;
};

constexpr std::array<Ending, 7> endings = {{
    {".xlsx", OutputFormat::Xlsx},
    {".xlsm", OutputFormat::Xlsx},
    {".csv", OutputFormat::Csv},
    {".json", OutputFormat::Json},
    {".html", OutputFormat::Html},
    {".htm", OutputFormat::Html},
    {".txt", OutputFormat::Text},
}};

std::optional<OutputFormat> formatOf(const std::string& file) {
    const std::string own = foldCase(std::filesystem::path(file).extension().string());
    for (const Ending& ending : endings) {
        if (own == ending.text) {
            return ending.format;
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::string> settleSaving(Arguments& arguments, bool formatGiven) {
    if (arguments.save.empty() && arguments.format == OutputFormat::Xlsx) {
        return "--format xlsx needs a file: add --save FILE";
    }
    if (!arguments.save.empty() && !formatGiven) {
        const std::optional<OutputFormat> format = formatOf(arguments.save);
        if (!format) {
            return fmt::format(
                "--save {}: the ending says nothing about the form; use .xlsx, .csv, .json, .html "
                "or .txt, or add --format",
                arguments.save);
        }
        arguments.format = *format;
    }
    if (arguments.safeCsv && arguments.format != OutputFormat::Csv) {
        return "--safe-csv needs the report in csv: add --format csv";
    }
    if (arguments.withData && arguments.format != OutputFormat::Xlsx) {
        return "--with-data needs a workbook: save the report as .xlsx";
    }
    return std::nullopt;
}

}  // namespace TBVNonPara::cli
