#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tbvnonpara/files/container.hpp"

namespace TBVNonPara::workbook {

/// How the refusal of a file ends that another program can turn into one that is read.
constexpr std::string_view saveAs = "; save it as .xlsx, .ods or .csv";

/// How many bytes tell what a file is.
constexpr std::size_t enoughToTell = 4096;

/// Whether a file with this beginning is a zip container, which workbooks are.
[[nodiscard]] bool isZip(std::string_view beginning) noexcept;

/// Whether a file with this beginning is a compound document: the old binary formats, and encrypted .xlsx.
[[nodiscard]] bool isCompoundDocument(std::string_view beginning) noexcept;

/// What a file is by its first bytes that is neither text nor a workbook this program reads, and what to do
/// about it; none for anything else.
[[nodiscard]] std::optional<std::string> foreignKind(std::string_view beginning) noexcept;

/// The same for the whole of a compound document.
[[nodiscard]] std::string kindOfCompoundDocument(std::string_view bytes);

/// The same for a container that holds no workbook.
[[nodiscard]] std::string kindOfContainer(const Container& container);

}  // namespace TBVNonPara::workbook
