#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/files/saving/xml_walk.hpp"
#include "tbvnonpara/workbook/cell_format.hpp"

namespace TBVNonPara::workbook {

/// The style part of a workbook, to which formats are added. What was there keeps its number and its text.
/// Cells are written in the workbook's own font.
class StylePart {
 public:
    StylePart(std::string text, std::string part);

    /// The number of the style that cells with this format bear; 0 for a format that says nothing.
    [[nodiscard]] std::size_t styleOf(const CellFormat& format);
    /// What stands in front of a run of characters: <rPr>...</rPr>. The prefix is that of the sheet's part.
    [[nodiscard]] std::string runProperties(bool bold, bool subscript, std::string_view prefix) const;

    [[nodiscard]] bool changed() const noexcept { return m_Changed; }
    /// The part with the formats added.
    [[nodiscard]] std::string finish() const;

 private:
    /// A list of the part: <fonts count="2">...</fonts>. Where it is missing, both ends are 0.
    struct List {
        std::size_t count = 0;
        std::string startTag;
        std::size_t begin = 0;
        std::size_t end = 0;
        std::size_t contentBegin = 0;
        std::size_t contentEnd = 0;
        std::string added;
    };

    void read();
    void readFont(const XmlTag& tag, int depth, std::string_view list);
    std::size_t add(List& list, const std::string& element);
    std::size_t numberFormatOf(const std::string& code);
    std::size_t fontOf(bool bold);
    std::size_t borderOf(const Borders& borders);
    [[nodiscard]] std::string element(std::string_view name, std::string_view attributes) const;
    [[nodiscard]] Edit editOf(const List& list, std::string_view name) const;

    std::string m_Text;
    std::string m_Part;
    std::string m_Prefix;
    std::size_t m_RootEnd = 0;
    List m_NumberFormats;
    List m_Fonts;
    List m_Borders;
    List m_Formats;
    std::vector<std::string> m_FontProperties;  ///< of the first font: elements without their prefix
    bool m_FirstFontIsBold = false;
    std::size_t m_HighestNumberFormat = 163;
    std::map<std::string, std::size_t> m_KnownNumberFormats;
    std::map<CellFormat, std::size_t> m_Styles;
    std::map<std::string, std::size_t> m_Added;
    bool m_Changed = false;
};

/// The style part of a workbook that has none.
[[nodiscard]] std::string emptyStylePart(std::string_view vocabulary);

}  // namespace TBVNonPara::workbook
