#pragma once

#include <expat.h>

namespace TBVNonPara::workbook {

/// Memory for one parser at a time of each thread: a part that makes it ask for more than 16 MiB (names
/// without end, a single tag of many megabytes) is refused as if the machine had no more. Ordinary parts take
/// less than one.
[[nodiscard]] const XML_Memory_Handling_Suite& boundedXmlMemory() noexcept;

}  // namespace TBVNonPara::workbook
