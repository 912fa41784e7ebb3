#include "tbvnonpara/files/container_kind.hpp"

#include <array>

namespace TBVNonPara::workbook {

namespace {

using namespace std::string_view_literals;

struct Signature {
    std::string_view bytes;
    std::string_view kind;
    bool workbook = false;
};

constexpr auto signatures = std::to_array<Signature>({
    {"\x09\x08\x10\x00"sv, "a workbook in the old binary format (.xls)", true},
    {"\x09\x08\x08\x00"sv, "a workbook in the old binary format (.xls)", true},
    {"\x09\x04\x06\x00"sv, "a workbook in the old binary format (.xls)", true},
    {"\x09\x02\x06\x00"sv, "a workbook in the old binary format (.xls)", true},
    {"\x09\x00\x04\x00"sv, "a workbook in the old binary format (.xls)", true},
    {"\x1F\x8B"sv, "compressed by gzip (a Gnumeric workbook is, too)", true},
    {"BZh"sv, "compressed by bzip2"},
    {"\xFD"
     "7zXZ\0"sv,
     "compressed by xz"},
    {"\x28\xB5\x2F\xFD"sv, "compressed by Zstandard"},
    {"7z\xBC\xAF\x27\x1C"sv, "a 7-Zip archive"},
    {"Rar!\x1A\x07"sv, "a RAR archive"},
    {"PAR1"sv, "a Parquet file"},
    {"ARROW1"sv, "an Arrow file"},
    {"\x89HDF\r\n"sv, "an HDF5 file"},
    {"SQLite format 3\0"sv, "an SQLite database"},
    {"$FL2@(#)"sv, "an SPSS data file"},
    {"$FL3@(#)"sv, "an SPSS data file"},
    {"<stata_dta>"sv, "a Stata data file"},
    {"\x89PNG"sv, "a picture (PNG)"},
    {"\xFF\xD8\xFF"sv, "a picture (JPEG)"},
    {"GIF8"sv, "a picture (GIF)"},
    {"\x7F"
     "ELF"sv,
     "a program"},
});

std::string described(const Signature& signature) {
    return "it is " + std::string(signature.kind) + (signature.workbook ? std::string(saveAs) : "");
}

std::string utf16(std::string_view name) {
    std::string bytes;
    for (const char c : name) {
        bytes += c;
        bytes += '\0';
    }
    return bytes;
}

}  // namespace

bool isZip(std::string_view beginning) noexcept {
    return beginning.starts_with("PK\x03\x04"sv) || beginning.starts_with("PK\x05\x06"sv) ||
           beginning.starts_with("PK00PK"sv);
}

bool isCompoundDocument(std::string_view beginning) noexcept {
    return beginning.starts_with("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"sv);
}

std::optional<std::string> foreignKind(std::string_view beginning) noexcept {
    for (const Signature& signature : signatures) {
        if (beginning.starts_with(signature.bytes)) {
            return described(signature);
        }
    }
    return std::nullopt;
}

std::string kindOfCompoundDocument(std::string_view bytes) {
    if (bytes.find(utf16("EncryptedPackage")) != std::string_view::npos) {
        return "it is encrypted; save the workbook without a password";
    }
    if (bytes.find(utf16("Workbook")) != std::string_view::npos ||
        bytes.find(utf16("Book")) != std::string_view::npos) {
        return "it is a workbook in the old binary format (.xls)" + std::string(saveAs);
    }
    return "it is a compound document without a workbook, such as an old text document or an e-mail";
}

std::string kindOfContainer(const Container& container) {
    if (container.has("xl/workbook.bin")) {
        return "it is a binary workbook (.xlsb)" + std::string(saveAs);
    }
    if (container.hasFolder("word/")) {
        return "it is a text document (.docx), no workbook";
    }
    if (container.hasFolder("ppt/")) {
        return "it is a presentation (.pptx), no workbook";
    }
    if (container.hasFolder("Index/") || container.has("Index.zip")) {
        return "it is a document of Numbers, Pages or Keynote" + std::string(saveAs);
    }
    constexpr std::size_t enough = 100;
    const std::string type = beginningOf(container, "mimetype", enough);
    if (type.starts_with("application/vnd.sun.xml.calc")) {
        return "it is a workbook of OpenOffice.org 1 (.sxc)" + std::string(saveAs);
    }
    if (!type.empty()) {
        return "it is a document of the type " + type + ", no workbook";
    }
    return "it is a zip archive without a workbook in it";
}

}  // namespace TBVNonPara::workbook
