#include "tbvnonpara/files/saving/xml_walk.hpp"

#include <algorithm>
#include <exception>
#include <limits>
#include <utility>

#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/files/file_values.hpp"
#include "tbvnonpara/files/xml_parser.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

std::string_view localName(std::string_view name) noexcept {
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

/// Tells a visitor the elements of a part with the bytes at which they stand.
class Walk {
 public:
    Walk(std::string_view text, const XmlVisitor& visitor) : m_Text(text), m_Visitor(visitor) {}

    /// All at once: the parser then looks at the text itself and counts from its beginning.
    void run(const std::string& where) {
        const XML_Status status =
            XML_Parse(m_Parser.get(), m_Text.data(), static_cast<int>(m_Text.size()), XML_TRUE);
        if (m_Parser.failure() != nullptr) {
            std::rethrow_exception(m_Parser.failure());
        }
        if (status != XML_STATUS_OK) {
            refuse(where + "is damaged: " + m_Parser.problem() + ".");
        }
        // A part in another encoding would be told in UTF-8, with the bytes of the original.
        if (m_ForeignEncoding) {
            refuse(where + "is not stored in UTF-8 and cannot be changed; save the workbook anew first.");
        }
    }

    void declaration(const char* encoding) {
        m_ForeignEncoding = encoding != nullptr && !equalIgnoringCase(encoding, "UTF-8") &&
                            !equalIgnoringCase(encoding, "US-ASCII");
    }
    void start(const char* name, const char* const* attributes, std::size_t depth) {
        if (m_Visitor.begin) {
            m_Visitor.begin(XmlTag(m_Text, name, attributes, here(), here() + length()), toDepth(depth));
        }
    }
    void end(const char* name, std::size_t depth) {
        if (m_Visitor.end) {
            m_Visitor.end(localName(name), toDepth(depth), here(), here() + length());
        }
    }
    void text(std::string_view piece, std::size_t depth) {
        if (m_Visitor.characters) {
            m_Visitor.characters(piece, toDepth(depth));
        }
    }

 private:
    [[nodiscard]] std::size_t here() const {
        return static_cast<std::size_t>(XML_GetCurrentByteIndex(m_Parser.get()));
    }
    [[nodiscard]] std::size_t length() const {
        return static_cast<std::size_t>(XML_GetCurrentByteCount(m_Parser.get()));
    }
    static int toDepth(std::size_t depth) noexcept { return static_cast<int>(depth); }

    std::string_view m_Text;
    const XmlVisitor& m_Visitor;
    XmlParser<Walk> m_Parser{*this};
    bool m_ForeignEncoding = false;
};

}  // namespace

std::string_view XmlTag::name() const noexcept {
    return localName(m_Name);
}

std::string_view XmlTag::prefix() const noexcept {
    return m_Name.substr(0, m_Name.size() - name().size());
}

std::optional<std::string_view> XmlTag::attribute(std::string_view name) const noexcept {
    for (const char* const* pair = m_Attributes; *pair != nullptr; pair += 2) {
        if (name == pair[0]) {
            return pair[1];
        }
    }
    return std::nullopt;
}

std::optional<std::string_view> XmlTag::prefixedAttribute(std::string_view name) const noexcept {
    for (const char* const* pair = m_Attributes; *pair != nullptr; pair += 2) {
        const std::string_view candidate = pair[0];
        if (candidate.size() > name.size() && localName(candidate) == name) {
            return candidate;
        }
    }
    return std::nullopt;
}

void walkXml(std::string_view text, std::string_view part, const XmlVisitor& visitor) {
    const std::string where = "The part \"" + std::string(part) + "\" of the workbook ";
    if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        refuse(where + "is larger than 2 GB and cannot be changed.");
    }
    if (text.starts_with("\xFE\xFF") || text.starts_with("\xFF\xFE")) {
        refuse(where + "is stored in UTF-16 and cannot be changed; save the workbook anew first.");
    }
    Walk(text, visitor).run(where);
}

std::string edited(std::string_view text, std::vector<Edit> edits) {
    std::ranges::stable_sort(edits, {}, [](const Edit& edit) { return std::pair(edit.begin, edit.end); });
    std::size_t size = text.size();
    for (const Edit& edit : edits) {
        size += edit.text.size();
    }
    std::string result;
    result.reserve(size);
    std::size_t position = 0;
    for (const Edit& edit : edits) {
        result += text.substr(position, edit.begin - position);
        result += edit.text;
        position = edit.end;
    }
    return result += text.substr(position);
}

Stretch attributeStretch(std::string_view tag, std::string_view name) noexcept {
    std::size_t position = tag.find_first_of(xmlBlanks);
    while (position < tag.size()) {
        const std::size_t start = tag.find_first_not_of(xmlBlanks, position);
        const std::size_t equals = tag.find('=', start);
        if (start == std::string_view::npos || equals == std::string_view::npos) {
            break;
        }
        const std::size_t open = tag.find_first_of("\"'", equals);
        const std::size_t close = tag.find(tag[open], open + 1);
        if (tag.substr(start, tag.find_first_of(" \t\r\n=", start) - start) == name) {
            return {position, close + 1};
        }
        position = close + 1;
    }
    return {};
}

Edit withAttribute(const XmlTag& tag, std::string_view name, std::string_view value) {
    const std::string text = ' ' + std::string(name) + "=\"" + std::string(value) + '"';
    const Stretch old = attributeStretch(tag.text(), name);
    if (old.begin == old.end) {
        return {tag.behindName(), tag.behindName(), text};
    }
    return {tag.begin() + old.begin, tag.begin() + old.end, text};
}

}  // namespace TBVNonPara::workbook
