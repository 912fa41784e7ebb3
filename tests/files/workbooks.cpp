#include "tests/files/workbooks.hpp"

#include <iterator>
#include <zip.h>

#include "tbvnonpara/core/a1.hpp"

namespace TBVNonPara::workbook {

PartTexts xlsxParts(const std::string& rows, const std::string& sharedTexts) {
    const std::string relationships = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
    const std::string package = "http://schemas.openxmlformats.org/package/2006/relationships";
    const std::string main = " xmlns='" + spreadsheetNamespace + "'";
    return {
        {"[Content_Types].xml", "<Types/>"},
        {"_rels/.rels", "<Relationships xmlns='" + package + "'><Relationship Id='a' Type='" + relationships +
                            "/officeDocument' Target='xl/workbook.xml'/></Relationships>"},
        {"xl/workbook.xml", "<workbook" + main + " xmlns:r='" + relationships +
                                "'><sheets><sheet name='Data' sheetId='1' r:id='b'/></sheets></workbook>"},
        {"xl/_rels/workbook.xml.rels",
         "<Relationships xmlns='" + package + "'><Relationship Id='b' Type='" + relationships +
             "/worksheet' Target='worksheets/sheet1.xml'/><Relationship Id='c' Type='" + relationships +
             "/sharedStrings' Target='sharedStrings.xml'/></Relationships>"},
        {"xl/sharedStrings.xml", "<sst" + main + ">" + sharedTexts + "</sst>"},
        {"xl/worksheets/sheet1.xml",
         "<worksheet" + main + "><sheetData>" + rows + "</sheetData></worksheet>"},
    };
}

PartTexts odsParts(const std::string& rows, const std::string& settings) {
    const std::string names =
        " xmlns:office='urn:oasis:names:tc:opendocument:xmlns:office:1.0'"
        " xmlns:table='urn:oasis:names:tc:opendocument:xmlns:table:1.0'"
        " xmlns:text='urn:oasis:names:tc:opendocument:xmlns:text:1.0'"
        " xmlns:style='urn:oasis:names:tc:opendocument:xmlns:style:1.0'"
        " xmlns:calcext='urn:org:documentfoundation:names:experimental:calc:xmlns:calcext:1.0'"
        " xmlns:gnm='http://www.gnumeric.org/odf-extension/1.0'";
    return {
        {"mimetype", "application/vnd.oasis.opendocument.spreadsheet"},
        {"content.xml", "<office:document-content" + names +
                            "><office:automatic-styles><style:style style:name='gone' style:family='table'>"
                            "<style:table-properties table:display='false'/></style:style>"
                            "</office:automatic-styles><office:body><office:spreadsheet>" +
                            settings + "<table:table table:name='Data'>" + rows +
                            "</table:table></office:spreadsheet></office:body></office:document-content>"},
    };
}

std::string zipped(const PartTexts& parts) {
    zip_source_t* const target = zip_source_buffer_create(nullptr, 0, 0, nullptr);
    zip_source_keep(target);
    zip_t* const archive = zip_open_from_source(target, ZIP_TRUNCATE, nullptr);
    for (const auto& [name, text] : parts) {
        zip_source_t* const source = zip_source_buffer(archive, text.data(), text.size(), 0);
        zip_file_add(archive, name.c_str(), source, ZIP_FL_ENC_UTF_8);
    }
    zip_close(archive);
    zip_source_open(target);
    zip_source_seek(target, 0, SEEK_END);
    std::string bytes(static_cast<std::size_t>(zip_source_tell(target)), '\0');
    zip_source_seek(target, 0, SEEK_SET);
    zip_source_read(target, bytes.data(), bytes.size());
    zip_source_close(target);
    zip_source_free(target);
    return bytes;
}

PartTexts unzipped(const std::string& bytes) {
    zip_t* const archive = zip_open_from_source(
        zip_source_buffer_create(bytes.data(), bytes.size(), 0, nullptr), ZIP_RDONLY, nullptr);
    PartTexts parts;
    for (zip_int64_t i = 0; i < zip_get_num_entries(archive, 0); ++i) {
        const auto index = static_cast<zip_uint64_t>(i);
        zip_stat_t stat;
        zip_stat_index(archive, index, 0, &stat);
        std::string text(stat.size, '\0');
        zip_file_t* const file = zip_fopen_index(archive, index, 0);
        zip_fread(file, text.data(), text.size());
        zip_fclose(file);
        parts[stat.name] = std::move(text);
    }
    zip_discard(archive);
    return parts;
}

std::string replaced(std::string text, const std::string& what, const std::string& by) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size())) {
        text.replace(at, what.size(), by);
    }
    return text;
}

std::string utf16(const std::string& text, bool bigEndian) {
    std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : text) {
        bytes += bigEndian ? std::string{'\0', c} : std::string{c, '\0'};
    }
    return bytes;
}

std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::filesystem::path madeFile(const std::string& name) {
    return std::filesystem::path(TBVNONPARA_TESTS) / "files/made" / name;
}

std::string testNameOf(const testing::TestParamInfo<const char*>& test) {
    return replaced(test.param, ".", "_");
}

std::string shownCell(const CellValue& value) {
    if (const auto* number = std::get_if<double>(&value)) {
        char text[32];
        return {text, std::to_chars(text, text + sizeof text, *number).ptr};
    }
    if (const auto* text = std::get_if<Text>(&value)) {
        return '"' + text->string() + '"';
    }
    if (const auto* truth = std::get_if<bool>(&value)) {
        return *truth ? "TRUE" : "FALSE";
    }
    if (const auto* error = std::get_if<CellError>(&value)) {
        return *error == uncalculated ? "uncalculated"
               : *error == unreadable ? "unreadable"
                                      : std::string(displayText(*error));
    }
    return "";
}

std::string shownCells(const CellStore& cells) {
    std::map<std::pair<Index, Index>, std::string> byRow;
    cells.visit(wholeSheet, [&](Index row, Index column, const CellValue& value) {
        byRow[{row, column}] = columnLetters(column) + std::to_string(row) + "=" + shownCell(value);
    });
    std::string all;
    for (const auto& [place, cell] : byRow) {
        all.append(all.empty() ? "" : " ").append(cell);
    }
    return all;
}

}  // namespace TBVNonPara::workbook
