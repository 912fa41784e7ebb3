#include "tbvnonpara/files/saving/style_part.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "tbvnonpara/files/saving/cell_text.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

/// The number formats that every workbook has without naming them.
constexpr std::array<std::pair<std::string_view, std::size_t>, 9> builtIn = {{
    {"General", 0},
    {"0", 1},
    {"0.00", 2},
    {"#,##0", 3},
    {"#,##0.00", 4},
    {"0%", 9},
    {"0.00%", 10},
    {"0.00E+00", 11},
    {"@", 49},
}};

std::size_t numberIn(std::optional<std::string_view> text) {
    std::size_t number = 0;
    if (text) {
        std::from_chars(text->data(), text->data() + text->size(), number);
    }
    return number;
}

std::string_view wordFor(HorizontalAlignment alignment) {
    switch (alignment) {
        case AlignCentreAcrossSelection:
            return "centerContinuous";
        case AlignCentre:
            return "center";
        case AlignLeft:
            return "left";
        case AlignRight:
            return "right";
        case AlignGeneral:
            break;
    }
    return "";
}

std::string number(std::size_t value) {
    return std::to_string(value);
}

}  // namespace

StylePart::StylePart(std::string text, std::string part) : m_Text(std::move(text)), m_Part(std::move(part)) {
    for (const auto& [code, id] : builtIn) {
        m_KnownNumberFormats.emplace(code, id);
    }
    // A cell that names no style has the first one.
    m_Styles.emplace(CellFormat{}, 0);
    read();
    // Formats name fonts, borders and one another by position; without the first of each they would point
    // nowhere.
    if (m_Formats.count == 0 || m_Fonts.count == 0 || m_Borders.count == 0) {
        refuse("The part \"" + m_Part +
               "\" of the workbook lacks its fonts, borders or formats; save the "
               "workbook anew first.");
    }
}

void StylePart::read() {
    const std::map<std::string_view, List*> lists = {
        {"numFmts", &m_NumberFormats}, {"fonts", &m_Fonts}, {"borders", &m_Borders}, {"cellXfs", &m_Formats}};
    std::string list;
    XmlVisitor visitor;
    visitor.begin = [&](const XmlTag& tag, int depth) {
        if (depth == 1) {
            m_RootEnd = tag.end();
            m_Prefix = tag.prefix();
        }
        if (depth == 2) {
            list = tag.name();
            if (const auto known = lists.find(list); known != lists.end()) {
                *known->second = {0, std::string(tag.text()), tag.begin(), tag.end(), tag.end(), 0, ""};
            }
        }
        if (depth == 3 && list == "numFmts") {
            const std::size_t id = numberIn(tag.attribute("numFmtId"));
            m_HighestNumberFormat = std::max(m_HighestNumberFormat, id);
            m_KnownNumberFormats.emplace(tag.attribute("formatCode").value_or(""), id);
        }
        readFont(tag, depth, list);
    };
    visitor.end = [&](std::string_view name, int depth, std::size_t begin, std::size_t end) {
        const auto known = lists.find(list);
        if (depth == 3 && known != lists.end()) {
            known->second->count += 1;
        }
        if (depth == 2 && known != lists.end() && name == list) {
            known->second->contentEnd = begin;
            known->second->end = end;
        }
    };
    walkXml(m_Text, m_Part, visitor);
}

void StylePart::readFont(const XmlTag& tag, int depth, std::string_view list) {
    if (depth != 4 || list != "fonts" || m_Fonts.count != 0) {
        return;
    }
    const bool bold = tag.name() == "b" && tag.attribute("val").value_or("1") != "0";
    m_FirstFontIsBold = m_FirstFontIsBold || bold;
    // What is added in bold looks like the workbook's first font, the one of cells without a style, in all
    // else.
    if (tag.isEmpty() && tag.name() != "b") {
        m_FontProperties.emplace_back(tag.text().substr(tag.prefix().size() + 1));
    }
}

std::string StylePart::element(std::string_view name, std::string_view attributes) const {
    return '<' + m_Prefix + std::string(name) + std::string(attributes) + "/>";
}

std::size_t StylePart::add(List& list, const std::string& element) {
    const auto [known, isNew] = m_Added.try_emplace(element, list.count);
    if (isNew) {
        list.count += 1;
        list.added += element;  // at the end: cells know the styles that are there by their positions
        m_Changed = true;
    }
    return known->second;
}

std::size_t StylePart::numberFormatOf(const std::string& code) {
    const auto [known, isNew] = m_KnownNumberFormats.try_emplace(code, m_HighestNumberFormat + 1);
    if (isNew) {
        m_HighestNumberFormat += 1;
        std::string escaped;
        appendEscaped(code, escaped);
        add(m_NumberFormats,
            element("numFmt", " numFmtId=\"" + number(known->second) + "\" formatCode=\"" + escaped + '"'));
    }
    return known->second;
}

std::size_t StylePart::fontOf(bool bold) {
    if (!bold || m_FirstFontIsBold) {
        return 0;
    }
    // b stands in front of a font's other properties, as spreadsheets write it.
    std::string font = '<' + m_Prefix + "font>" + element("b", "");
    for (const std::string& property : m_FontProperties) {
        font += '<' + m_Prefix + property;
    }
    return add(m_Fonts, font + "</" + m_Prefix + "font>");
}

std::size_t StylePart::borderOf(const Borders& borders) {
    if (borders == Borders{}) {
        return 0;
    }
    const auto side = [this](std::string_view name, bool there) {
        const std::string tag = m_Prefix + std::string(name);
        return there ? '<' + tag + R"( style="thin">)" + element("color", R"( auto="1")") + "</" + tag + '>'
                     : element(name, "");
    };
    return add(m_Borders, '<' + m_Prefix + "border>" + side("left", borders.left) +
                              side("right", borders.right) + side("top", borders.top) +
                              side("bottom", borders.bottom) + element("diagonal", "") + "</" + m_Prefix +
                              "border>");
}

std::size_t StylePart::styleOf(const CellFormat& format) {
    CellFormat key = format;
    key.subscripts.clear();
    if (const auto known = m_Styles.find(key); known != m_Styles.end()) {
        return known->second;
    }
    const std::size_t numberFormat = numberFormatOf(key.numberFormat);
    const std::size_t font = fontOf(key.bold);
    const std::size_t border = borderOf(key.borders);
    const std::string_view alignment = wordFor(key.alignment);
    std::string attributes = " numFmtId=\"" + number(numberFormat) + "\" fontId=\"" + number(font) +
                             R"(" fillId="0" borderId=")" + number(border) + R"(" xfId="0")";
    attributes += numberFormat == 0 ? "" : " applyNumberFormat=\"1\"";
    attributes += font == 0 ? "" : " applyFont=\"1\"";
    attributes += border == 0 ? "" : " applyBorder=\"1\"";
    const std::string style =
        alignment.empty() ? element("xf", attributes)
                          : '<' + m_Prefix + "xf" + attributes + " applyAlignment=\"1\">" +
                                element("alignment", " horizontal=\"" + std::string(alignment) + '"') + "</" +
                                m_Prefix + "xf>";
    return m_Styles.emplace(key, add(m_Formats, style)).first->second;
}

std::string StylePart::runProperties(bool bold, bool subscript, std::string_view prefix) const {
    const std::string open = '<' + std::string(prefix);
    std::string properties = open + "rPr>";
    properties += bold || m_FirstFontIsBold ? open + "b/>" : "";
    for (const std::string& property : m_FontProperties) {
        // A run calls the name of its font rFont; the other properties are the same.
        const bool isName = property.starts_with("name ");
        properties += open + (isName ? "rFont" + property.substr(4) : property);
    }
    properties += subscript ? open + "vertAlign val=\"subscript\"/>" : "";
    return properties + "</" + std::string(prefix) + "rPr>";
}

Edit StylePart::editOf(const List& list, std::string_view name) const {
    const std::string tag = m_Prefix + std::string(name);
    const std::string closing = "</" + tag + '>';
    if (list.end == 0) {
        // Only number formats may be missing, and they come first.
        return {m_RootEnd, m_RootEnd,
                '<' + tag + " count=\"" + number(list.count) + "\">" + list.added + closing};
    }
    // The count may be left out, but not be wrong.
    std::string start = list.startTag;
    const Stretch count = attributeStretch(start, "count");
    start.erase(count.begin, count.end - count.begin);
    start.insert(tag.size() + 1, " count=\"" + number(list.count) + '"');
    const bool wasEmpty = list.contentEnd <= list.contentBegin && start.ends_with("/>");
    if (wasEmpty) {
        start.replace(start.size() - 2, 2, ">");
    }
    const std::string content =
        wasEmpty ? "" : m_Text.substr(list.contentBegin, list.contentEnd - list.contentBegin);
    return {list.begin, list.end, start + content + list.added + closing};
}

std::string StylePart::finish() const {
    std::vector<Edit> edits;
    const std::array<std::pair<const List*, std::string_view>, 4> lists = {{{&m_NumberFormats, "numFmts"},
                                                                            {&m_Fonts, "fonts"},
                                                                            {&m_Borders, "borders"},
                                                                            {&m_Formats, "cellXfs"}}};
    for (const auto& [list, name] : lists) {
        if (!list->added.empty()) {
            edits.push_back(editOf(*list, name));
        }
    }
    return edited(m_Text, std::move(edits));
}

std::string emptyStylePart(std::string_view vocabulary) {
    // The least that spreadsheets open: the first two fills are reserved for these patterns, whatever they
    // hold, and cellXfs refers to cellStyleXfs.
    return "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
           "<styleSheet xmlns=\"" +
           std::string(vocabulary) +
           "\">"
           "<fonts count=\"1\"><font><sz val=\"11\"/><name val=\"Calibri\"/></font></fonts>"
           "<fills count=\"2\"><fill><patternFill patternType=\"none\"/></fill>"
           "<fill><patternFill patternType=\"gray125\"/></fill></fills>"
           "<borders count=\"1\"><border><left/><right/><top/><bottom/><diagonal/></border></borders>"
           "<cellStyleXfs count=\"1\"><xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" "
           "borderId=\"0\"/></cellStyleXfs>"
           "<cellXfs count=\"1\"><xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" borderId=\"0\" "
           "xfId=\"0\"/></cellXfs>"
           "<cellStyles count=\"1\"><cellStyle name=\"Normal\" xfId=\"0\" builtinId=\"0\"/></cellStyles>"
           "</styleSheet>";
}

}  // namespace TBVNonPara::workbook
