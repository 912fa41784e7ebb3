#pragma once

#include <string>
#include <string_view>

#include "adapters/com/windows.hpp"

namespace TBVNonPara::com {

/// The library's texts are UTF-8, automation's are UTF-16. A half of a surrogate pair and a broken sequence
/// become the replacement character; a null inside a text stays.
[[nodiscard]] std::wstring toUtf16(std::string_view text);
[[nodiscard]] std::string toUtf8(std::wstring_view text);

/// A null pointer is an empty text.
[[nodiscard]] std::string toUtf8(BSTR text);

/// A new text for automation; raises OutOfMemory. The caller frees it.
[[nodiscard]] BSTR toBstr(std::string_view text);

}  // namespace TBVNonPara::com
