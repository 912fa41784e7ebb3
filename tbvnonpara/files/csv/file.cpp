#include "tbvnonpara/files/csv/file.hpp"

#include <cerrno>
#include <fstream>
#include <system_error>
#include <utility>

#include "tbvnonpara/core/file_name.hpp"
#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/files/csv/dialect.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

[[noreturn]] void cannotRead(const std::filesystem::path& path, const std::string& reason) {
    refuse("The file " + inQuotes(shown(path)) + " cannot be read: " + reason + '.');
}

std::shared_ptr<Sheet> addSheet(EmbeddedApplication& application, std::string_view name, CsvData data,
                                std::string* remark) {
    if (data.headerMoved && remark != nullptr) {
        *remark =
            "the header row is one field shorter than the rows below it; it was moved by one column, over "
            "the columns behind the row names";
    }
    return application.addSheet(application.activeBook()->freeSheetName(name), std::move(data.cells));
}

}  // namespace

std::string readStream(std::istream& stream) {
    constexpr std::size_t pieceSize = 1U << 20U;
    std::string all;
    while (stream) {
        const std::size_t before = all.size();
        all.resize(before + pieceSize);
        stream.read(all.data() + before, static_cast<std::streamsize>(pieceSize));
        all.resize(before + static_cast<std::size_t>(stream.gcount()));
    }
    if (stream.bad()) {
        refuse("The data could not be read to its end.");
    }
    return all;
}

std::string readFile(const std::filesystem::path& path) {
    std::error_code failure;
    if (std::filesystem::is_directory(path, failure)) {
        cannotRead(path, "it is a folder");
    }
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        cannotRead(path, std::generic_category().message(errno));
    }
    // Pipes and devices have no size; what a file grows by meanwhile is read as well.
    std::string all;
    if (const auto size = std::filesystem::file_size(path, failure); !failure) {
        all.resize(size);
        file.read(all.data(), static_cast<std::streamsize>(size));
        all.resize(static_cast<std::size_t>(file.gcount()));
    }
    if (file && file.peek() != std::ifstream::traits_type::eof()) {
        all += readStream(file);
    }
    if (file.bad()) {
        cannotRead(path, "it could not be read to its end");
    }
    return all;
}

std::shared_ptr<Sheet> openCsv(EmbeddedApplication& application, const std::filesystem::path& path,
                               CsvOptions options, std::string* remark) {
    const std::string ending = foldCase(shown(path.extension()));
    const std::string text = readFile(path);
    if (!options.delimiter && (ending == ".tsv" || ending == ".tab") &&
        !delimiterLine(DecodedText(text, options.encoding, shown(path.filename())).text())) {
        options.delimiter = '\t';
    }
    return addSheet(application, shown(path.stem()), readCsv(text, options, shown(path.filename())), remark);
}

std::shared_ptr<Sheet> openCsvText(EmbeddedApplication& application, std::string_view name,
                                   std::string_view text, const CsvOptions& options, std::string* remark) {
    return addSheet(application, name, readCsv(text, options, name), remark);
}

}  // namespace TBVNonPara::workbook
