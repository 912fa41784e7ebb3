#pragma once

#include <string>
#include <string_view>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/error.hpp"

namespace TBVNonPara::workbook {

/// How the characters of a text are written when no mark at its beginning says so.
enum class Encoding {
    Utf8,         ///< anything else raises NotUtf8
    Latin1,       ///< ISO 8859-1: every byte is a character
    Windows1252,  ///< Western Europe's of Windows, with five bytes that are none
};

/// The host's error for a text that is not in UTF-8, so that a caller can say how to name another encoding.
class TBVNONPARA_API NotUtf8 : public Error {
 public:
    /// As Error is made.
    using Error::Error;
};

/// @cond
/// Text of a file in UTF-8 without a mark: a view of the file's bytes where these are that already.
class TBVNONPARA_API DecodedText {
 public:
    /// UTF-16 with a byte order mark is known by it; UTF-8 may have one. The bytes must outlive the text.
    /// Raises the host's error for half a character of UTF-16, UTF-32, and bytes that windows-1252 leaves
    /// free, naming the source and the place.
    DecodedText(std::string_view bytes, Encoding encoding, std::string_view source);

    [[nodiscard]] std::string_view text() const noexcept { return m_IsOwn ? m_Own : m_Bytes; }

 private:
    std::string_view m_Bytes;
    std::string m_Own;
    bool m_IsOwn = false;
};

/// Whether a file with this beginning is UTF-16 text that says so by a mark.
[[nodiscard]] TBVNONPARA_API bool isMarkedUtf16(std::string_view beginning) noexcept;
/// @endcond

}  // namespace TBVNonPara::workbook
