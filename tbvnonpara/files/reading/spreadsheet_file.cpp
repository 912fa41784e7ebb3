#include "tbvnonpara/files/reading/spreadsheet_file.hpp"

#include <algorithm>
#include <array>
#include <fstream>
#include <utility>

#include "tbvnonpara/core/error.hpp"
#include "tbvnonpara/core/file_name.hpp"
#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/files/container_kind.hpp"
#include "tbvnonpara/files/csv/file.hpp"
#include "tbvnonpara/files/ods/reader.hpp"
#include "tbvnonpara/files/text_kind.hpp"
#include "tbvnonpara/files/xlsx/reader.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

constexpr auto workbookEndings = std::to_array<std::string_view>(
    {".xlsx", ".xlsm", ".xltx", ".xltm", ".xlsb", ".xls", ".ods", ".ots", ".fods", ".gnumeric"});

std::string beginningOfFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::string beginning(enoughToTell, '\0');
    file.read(beginning.data(), static_cast<std::streamsize>(beginning.size()));
    beginning.resize(static_cast<std::size_t>(file.gcount()));
    return beginning;
}

bool isReadAsContainer(std::string_view beginning) noexcept {
    return isZip(beginning) || isCompoundDocument(beginning);
}

/// A character may be cut in two at the end of the beginning.
bool looksLikeText(std::string_view beginning) noexcept {
    constexpr std::size_t longestCharacter = 4;
    const auto invalid = firstInvalidUtf8(beginning);
    return beginning.find('\0') == std::string_view::npos &&
           (!invalid || (beginning.size() == enoughToTell && *invalid + longestCharacter > beginning.size()));
}

/// What a file is that is no workbook which is read, nor lines of fields.
std::optional<std::string> foreignKindOf(std::string_view beginning) {
    if (isMarkedUtf16(beginning)) {
        // Half a character at the end of the beginning tells nothing.
        const std::string_view whole = beginning.substr(0, beginning.size() / 2 * 2);
        try {
            return foreignTextKind(DecodedText(whole, Encoding::Utf8, "the file").text());
        } catch (const Error&) {
            return std::nullopt;
        }
    }
    const auto text = foreignTextKind(beginning);
    return text || looksLikeText(beginning) ? text : foreignKind(beginning);
}

/// Whether a file with this beginning is a workbook, or refused as one.
bool isReadAsWorkbook(std::string_view beginning) {
    return isReadAsContainer(beginning) || isFlatOds(beginning) || foreignKindOf(beginning);
}

[[noreturn]] void refuseBeginning(std::string_view beginning) {
    if (beginning.empty()) {
        refuse("it is empty");
    }
    if (const auto kind = foreignKindOf(beginning)) {
        refuse(*kind);
    }
    refuse(looksLikeText(beginning) ? "it is text, no workbook; give it the ending .csv or .tsv"
                                    : "it is no workbook and nothing else that is known");
}

FileContents readContainer(const Container& container) {
    if (isXlsx(container)) {
        return readXlsx(container);
    }
    if (isOds(container)) {
        return readOds(container);
    }
    refuse(kindOfContainer(container));
}

/// The file's name in front of what was wrong with it.
template <typename Action>
auto namingFile(std::string_view name, Action action) try {
    return action();
} catch (const Error& error) {
    if (error.number() != hostErrorNumber) {
        throw;
    }
    refuse("The file " + inQuotes(name) + " cannot be read: " + error.description() + '.');
}

std::shared_ptr<Sheet> addSheets(EmbeddedApplication& application, FileContents contents) {
    Book& book = *application.activeBook();
    std::shared_ptr<Sheet> onTop;
    for (std::size_t i = 0; i < contents.sheets.size(); ++i) {
        FileSheet& read = contents.sheets[i];
        const std::shared_ptr<Sheet> sheet = book.adoptSheet(read.name);
        sheet->values() = std::move(read.cells);
        sheet->setUnreadableCells(std::move(read.unreadable));
        if (i == contents.active) {
            onTop = sheet;
        }
    }
    onTop->Activate();
    return onTop;
}

bool hasWorkbookEnding(const std::filesystem::path& path) {
    return std::ranges::find(workbookEndings, foldCase(shown(path.extension()))) != workbookEndings.end();
}

FileContents checked(FileContents contents) {
    if (contents.sheets.empty()) {
        refuse("it holds no sheet with cells");
    }
    tellSheetsApart(contents);
    return contents;
}

}  // namespace

FileContents readSpreadsheetBytes(std::string_view bytes, std::size_t threads) {
    if (isZip(bytes)) {
        return checked(readContainer(Container(bytes, threads)));
    }
    if (isCompoundDocument(bytes)) {
        refuse(kindOfCompoundDocument(bytes));
    }
    if (isFlatOds(bytes.substr(0, enoughToTell))) {
        return checked(readFlatOds(bytes));
    }
    refuseBeginning(bytes.substr(0, enoughToTell));
}

FileContents readSpreadsheet(const std::filesystem::path& path, std::size_t threads) {
    const std::string beginning = beginningOfFile(path);
    if (isZip(beginning)) {
        return checked(readContainer(Container(path, threads)));
    }
    return readSpreadsheetBytes(readFile(path));
}

std::shared_ptr<Sheet> openSpreadsheet(EmbeddedApplication& application, const std::filesystem::path& path,
                                       std::size_t threads) {
    return addSheets(application, namingFile(shown(path), [&] { return readSpreadsheet(path, threads); }));
}

std::shared_ptr<Sheet> openDataFile(EmbeddedApplication& application, const std::filesystem::path& path,
                                    const CsvOptions& options, std::string* remark) {
    std::error_code failure;
    if (!std::filesystem::is_regular_file(path, failure)) {
        // What comes out of a pipe comes only once.
        return openData(application, shown(path.stem()), readFile(path), options, remark);
    }
    const bool workbook = hasWorkbookEnding(path) || isReadAsWorkbook(beginningOfFile(path));
    return workbook ? openSpreadsheet(application, path, options.threads)
                    : openCsv(application, path, options, remark);
}

std::shared_ptr<Sheet> openData(EmbeddedApplication& application, std::string_view name,
                                std::string_view bytes, const CsvOptions& options, std::string* remark) {
    if (!isReadAsWorkbook(bytes.substr(0, enoughToTell))) {
        return openCsvText(application, name, bytes, options, remark);
    }
    return addSheets(application,
                     namingFile(name, [&] { return readSpreadsheetBytes(bytes, options.threads); }));
}

}  // namespace TBVNonPara::workbook
