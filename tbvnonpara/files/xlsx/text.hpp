#pragma once

#include <string>
#include <string_view>

namespace TBVNonPara::workbook {

/// The text of an .xlsx file with its "_xHHHH_" replaced by the characters that they stand for, pairs of
/// surrogates by one; what stands for no character stays as it is.
[[nodiscard]] std::string unescapedXlsx(std::string text);

/// Gathers a text that may have runs of different looks, which is how both shared and inline texts are
/// written: an item ("si", "is") with characters ("t"), bare or in runs ("r"). Phonetic runs are no part of
/// it.
class RichText {
 public:
    /// An item starts.
    void begin();
    /// Whether an element inside the item is wanted.
    bool start(std::string_view element) noexcept;
    /// The innermost element ends: false when it was the item itself.
    bool end() noexcept;
    void append(std::string_view piece);

    [[nodiscard]] std::string text() const { return unescapedXlsx(m_Text); }

 private:
    bool m_InRun = false;
    bool m_InCharacters = false;
    std::string m_Text;
};

}  // namespace TBVNonPara::workbook
