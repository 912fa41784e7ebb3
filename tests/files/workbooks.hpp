#pragma once

#include <charconv>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

#include "tbvnonpara/files/file_cells.hpp"

namespace TBVNonPara::workbook {

using PartTexts = std::map<std::string, std::string>;

inline const std::string spreadsheetNamespace = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";

/// The parts of an .xlsx file with one sheet, "Data", around the inside of its sheetData, with the inside of
/// its shared texts.
[[nodiscard]] PartTexts xlsxParts(const std::string& rows, const std::string& sharedTexts = "");

/// The parts of an .ods file with one sheet, "Data", around its rows; behind the rows may come other sheets.
[[nodiscard]] PartTexts odsParts(const std::string& rows, const std::string& settings = "");

/// Packs parts into a zip container.
[[nodiscard]] std::string zipped(const PartTexts& parts);

/// The parts of such a container.
[[nodiscard]] PartTexts unzipped(const std::string& bytes);

/// The text with each occurrence replaced.
[[nodiscard]] std::string replaced(std::string text, const std::string& what, const std::string& by);

/// ASCII text as UTF-16 with a byte order mark.
[[nodiscard]] std::string utf16(const std::string& text, bool bigEndian);

[[nodiscard]] std::string bytesOf(const std::filesystem::path& path);
[[nodiscard]] std::filesystem::path madeFile(const std::string& name);

/// The same cells, written by four programs.
inline const auto writersFiles = testing::Values("openpyxl.xlsx", "xlsxwriter.xlsx", "libreoffice.xlsx",
                                                 "libreoffice.ods", "gnumeric.xlsx", "gnumeric.ods");

/// Such a file's name as a part of a test's name.
[[nodiscard]] std::string testNameOf(const testing::TestParamInfo<const char*>& test);

/// A cell with its kind: 1.5, "text", TRUE, #N/A, uncalculated, unreadable; numbers with as many digits as
/// tell them from all others.
[[nodiscard]] std::string shownCell(const CellValue& value);

/// All cells of a sheet, row by row: "A1=1 B1="x"".
[[nodiscard]] std::string shownCells(const CellStore& cells);

}  // namespace TBVNonPara::workbook
