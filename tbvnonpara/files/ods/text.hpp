#pragma once

#include <string>
#include <string_view>

namespace TBVNonPara::workbook {

/// Gathers the text of an .ods cell: its paragraphs, joined by line ends. Blanks stay as they stand, because
/// LibreOffice writes several in a row into a paragraph of several lines and takes them back as they are;
/// only where a line ends inside a paragraph, which is the doing of programs that indent, they become one,
/// and none at the paragraph's ends.
class OdsText {
 public:
    void clear() noexcept;
    void startParagraph();
    void append(std::string_view piece);
    /// Blanks, tabs and line ends that stand as elements.
    void appendMeant(std::size_t count, char c);
    void endParagraph();

    [[nodiscard]] bool hasParagraph() const noexcept { return m_HasParagraph; }
    [[nodiscard]] const std::string& text() const noexcept { return m_Text; }

 private:
    void takeBlanks(bool atEnd);

    std::string m_Text;
    std::string m_Blanks;  ///< those behind the last word
    bool m_HasParagraph = false;
    bool m_AtStart = true;
};

}  // namespace TBVNonPara::workbook
