#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/files/csv/reader.hpp"
#include "tbvnonpara/files/file_cells.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::workbook {

/// Reads an .xlsx, .ods or .fods file; with more than one thread a large one is unpacked by one of its own.
/// Raises the host's error as openSpreadsheet() does.
[[nodiscard]] TBVNONPARA_API FileContents readSpreadsheet(const std::filesystem::path& path,
                                                          std::size_t threads = 1);
/// The same for the bytes of such a file.
[[nodiscard]] TBVNONPARA_API FileContents readSpreadsheetBytes(std::string_view bytes,
                                                               std::size_t threads = 1);

/// Reads such a file into new sheets of the active workbook, with the names that the file gives
/// them, and activates the sheet that was on top when it was saved. Raises the host's error, which names the
/// file, for one that is damaged, encrypted or something else (and then says what it is); no sheet has been
/// added then.
TBVNONPARA_API std::shared_ptr<Sheet> openSpreadsheet(EmbeddedApplication& application,
                                                      const std::filesystem::path& path,
                                                      std::size_t threads = 1);

/// Opens a file of any kind that is read, out of a pipe too: what it is decides, not its ending. A text that
/// holds no lines of fields (markup, another exchange format) is refused and named. What was done to the data
/// goes to `remark`. Returns the sheet on top.
TBVNONPARA_API std::shared_ptr<Sheet> openDataFile(EmbeddedApplication& application,
                                                   const std::filesystem::path& path,
                                                   const CsvOptions& options = {},
                                                   std::string* remark = nullptr);
/// The same for what is at hand, such as standard input, under a name of its own.
TBVNONPARA_API std::shared_ptr<Sheet> openData(EmbeddedApplication& application, std::string_view name,
                                               std::string_view bytes, const CsvOptions& options = {},
                                               std::string* remark = nullptr);

}  // namespace TBVNonPara::workbook
