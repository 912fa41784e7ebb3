#include "cli/save.hpp"

#include <filesystem>
#include <fstream>
#include <system_error>

#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/files/csv/file.hpp"
#include "tbvnonpara/files/saving/placing.hpp"
#include "tbvnonpara/files/saving/saved_file.hpp"
#include "tbvnonpara/files/saving/xlsx_writer.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::cli {

namespace {

namespace fs = std::filesystem;
using workbook::ExistingFile;

ExistingFile existingFile(const Arguments& arguments) {
    return arguments.overwrite ? ExistingFile::Replace : ExistingFile::Keep;
}

std::string endingOf(const std::string& file) {
    return foldCase(fs::path(file).extension().string());
}

bool namesTheInput(const Arguments& arguments) {
    std::error_code error;
    return arguments.file != "-" && fs::equivalent(arguments.file, arguments.save, error) && !error;
}

/// A copy of the user's workbook, rather than one with the report alone.
bool savesCopy(const Arguments& arguments) {
    return readsWorkbook(arguments) &&
           (!arguments.output.empty() || arguments.withData || namesTheInput(arguments));
}

void requireSameKind(const Arguments& arguments) {
    const std::string ending = endingOf(arguments.file);
    if (endingOf(arguments.save) != ending && (ending == ".xlsx" || ending == ".xlsm")) {
        workbook::refuse("\"" + arguments.save + "\" would be a copy of \"" + arguments.file +
                         "\" and must end in " + ending + " as well.");
    }
}

std::string copyOfWorkbook(const analysis::FinishedTest& finished, const Arguments& arguments) {
    const auto target =
        arguments.output.empty() ? workbook::TargetSheet::Added : workbook::TargetSheet::Named;
    std::vector<workbook::Placement> placements = {
        {&finished.sheet(), finished.block(), target, arguments.overwrite}};
    if (finished.details()) {
        placements.push_back({finished.details()->sheet.get(), finished.details()->block});
    }
    return workbook::placeIntoCopy(workbook::readFile(arguments.file), arguments.file, placements);
}

/// The report's sheet, as far as it is the report's, in front of the details and the data.
std::string workbookOfItsOwn(const analysis::FinishedTest& finished, const Arguments& arguments) {
    std::vector<workbook::WrittenSheet> sheets = {{&finished.sheet(), finished.block()}};
    const auto used = finished.sheet().usedArea();
    if (!arguments.output.empty() && used) {
        sheets.front().area = around(*used, finished.block());
    }
    const workbook::Sheet* const details = finished.details() ? finished.details()->sheet.get() : nullptr;
    if (details != nullptr) {
        sheets.push_back({details, finished.details()->block});
    }
    for (const auto& sheet : finished.sheet().book()->sheets()) {
        const auto data = sheet->usedArea();
        const bool written = sheet.get() == &finished.sheet() || sheet.get() == details;
        if (arguments.withData && data && !written) {
            sheets.push_back({sheet.get(), *data});
        }
    }
    return workbook::newWorkbook(sheets);
}

std::string savedWorkbook(const analysis::FinishedTest& finished, const Arguments& arguments) {
    if (savesCopy(arguments)) {
        return copyOfWorkbook(finished, arguments);
    }
    return workbookOfItsOwn(finished, arguments);
}

/// The errors of files have no source of their own.
template <typename Action>
auto asProgram(const Action& action) try {
    return action();
} catch (const std::system_error&) {
    throw;
} catch (const workbook::FileExists& error) {
    const std::string& description = error.description();
    throw Error(error.number(),
                description.substr(0, description.size() - 1) + "; add --overwrite to replace it.",
                "tbvnonpara");
} catch (...) {
    const Error error = currentError();
    throw Error(error.number(), error.description(), error.source().empty() ? "tbvnonpara" : error.source());
}

}  // namespace

bool readsWorkbook(const Arguments& arguments) {
    // What comes out of a pipe comes only once.
    std::error_code error;
    if (arguments.file == "-" || !fs::is_regular_file(arguments.file, error)) {
        return false;
    }
    std::ifstream file(arguments.file, std::ios::binary);
    std::string beginning(4, '\0');
    file.read(beginning.data(), 4);
    const std::string ending = endingOf(arguments.file);
    return beginning == "PK\x03\x04" && ending != ".ods";
}

void checkSaving(const Arguments& arguments) {
    asProgram([&] {
        if (arguments.save.empty()) {
            return;
        }
        workbook::requireSavable(arguments.save, existingFile(arguments));
        if (namesTheInput(arguments) && arguments.format != OutputFormat::Xlsx) {
            workbook::refuse(
                "\"" + arguments.save +
                "\" is the file that the data are read from; save the report under another name.");
        }
        if (arguments.format != OutputFormat::Xlsx) {
            return;
        }
        if (savesCopy(arguments)) {
            requireSameKind(arguments);
        } else if (endingOf(arguments.save) == ".xlsm" || namesTheInput(arguments)) {
            workbook::refuse("\"" + arguments.save +
                             "\" would be a new workbook; give it a name of its own that "
                             "ends in .xlsx.");
        }
    });
}

void saveText(const Arguments& arguments, const std::function<void(rendering::Output&)>& write) {
    asProgram([&] {
        workbook::SavedFile file(arguments.save, existingFile(arguments));
        rendering::Output output(file.file());
        write(output);
        output.finish();
        file.keep();
    });
}

std::string saveReport(const analysis::FinishedTest& finished, const Arguments& arguments,
                       const std::function<void(rendering::Output&)>& write) {
    if (arguments.format != OutputFormat::Xlsx) {
        saveText(arguments, write);
    } else {
        asProgram([&] {
            const std::string bytes = savedWorkbook(finished, arguments);
            workbook::SavedFile file(arguments.save, existingFile(arguments));
            file.write(bytes);
            file.keep();
        });
    }
    const std::string details = finished.details() ? " and " + finished.details()->address() : "";
    return "saved " + finished.address() + details + " in " + arguments.save;
}

}  // namespace TBVNonPara::cli
