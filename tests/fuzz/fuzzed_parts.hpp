#pragma once

#include <cstdint>

#include "tbvnonpara/core/error.hpp"
#include "tbvnonpara/files/reading/spreadsheet_file.hpp"
#include "tests/files/text_parts.hpp"

namespace TBVNonPara::workbook {

/// The bytes as parts: "%% name", a line end, the part, a line end, "%% next" and so on. So the fuzzer
/// reaches the readers without having to find the right checksums.
inline TextParts partsIn(std::string_view text) {
    constexpr std::string_view mark = "%% ";
    std::map<std::string, std::string> parts;
    while (text.starts_with(mark)) {
        text.remove_prefix(mark.size());
        const std::string name(text.substr(0, text.find('\n')));
        text.remove_prefix(std::min(name.size() + 1, text.size()));
        const std::size_t end = text.find("\n%% ");
        parts[name] = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return TextParts(std::move(parts));
}

/// Bytes that are a container are read as one, others as parts by the reader given.
template <typename Reader>
int readFuzzed(const std::uint8_t* data, std::size_t size, Reader read) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    try {
        if (bytes.starts_with("PK")) {
            (void)readSpreadsheetBytes(bytes);
        } else {
            (void)read(partsIn(bytes));
        }
    } catch (const Error&) {
        // A message is as good as cells.
    }
    return 0;
}

}  // namespace TBVNonPara::workbook
