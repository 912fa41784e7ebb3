#include "cli/warnings.hpp"

#include <fmt/format.h>

#include "cli/save.hpp"
#include "tbvnonpara/files/xlsx/drawings.hpp"
#include "tbvnonpara/workbook/address.hpp"

namespace TBVNonPara::cli {

namespace {

std::string plain(const workbook::Rectangle& area) {
    std::string address = workbook::absoluteAddress(area);
    std::erase(address, '$');
    return address;
}

}  // namespace

std::vector<std::string> warningsOnPlace(const analysis::FinishedTest& finished,
                                         const Arguments& arguments) try {
    const bool placed = arguments.format == OutputFormat::Xlsx || arguments.format == OutputFormat::Json;
    if (!placed || arguments.output.empty() || !readsWorkbook(arguments)) {
        return {};
    }
    std::vector<std::string> warnings;
    const workbook::Container parts{std::filesystem::path(arguments.file)};
    for (const auto& drawing : workbook::xlsxDrawingsOver(parts, finished.sheet().name(), finished.block())) {
        warnings.push_back(
            fmt::format("The report at {} lies under {}, which covers {}; move it, or choose "
                        "another place with --output.",
                        finished.address(), drawing.words, plain(drawing.cells)));
    }
    return warnings;
} catch (const Error& error) {
    return {fmt::format("Whether a chart or a picture covers the report could not be found out: {}",
                        error.description())};
}

}  // namespace TBVNonPara::cli
