#pragma once

#include <filesystem>
#include <istream>
#include <memory>
#include <string>
#include <string_view>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/files/csv/reader.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::workbook {

/// Everything that a file holds. Raises the host's error, which says why, when it cannot be read.
[[nodiscard]] TBVNONPARA_API std::string readFile(const std::filesystem::path& path);
/// Everything that a stream still holds. Raises as readFile() does.
[[nodiscard]] TBVNONPARA_API std::string readStream(std::istream& stream);

/// Reads a .csv or .tsv file into a new sheet of the active workbook. The sheet bears the file's name without
/// its ending, as far as a sheet may have it; where the name is taken a number follows. The delimiter of a
/// file ending in .tsv or .tab is the tab unless the options or the file name another. What was done to the
/// data beyond reading them, for the user, goes to `remark`, which otherwise stays as it is. Raises as
/// readFile() and readCsv() do; no sheet has been added then. O(bytes).
TBVNONPARA_API std::shared_ptr<Sheet> openCsv(EmbeddedApplication& application,
                                              const std::filesystem::path& path, CsvOptions options = {},
                                              std::string* remark = nullptr);

/// The same for text that is at hand, such as standard input, under a name of its own.
TBVNONPARA_API std::shared_ptr<Sheet> openCsvText(EmbeddedApplication& application, std::string_view name,
                                                  std::string_view text, const CsvOptions& options = {},
                                                  std::string* remark = nullptr);

}  // namespace TBVNonPara::workbook
