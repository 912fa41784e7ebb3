#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace TBVNonPara::workbook {

/// The start of an element and where it stands, in bytes from the beginning of the text.
class XmlTag {
 public:
    XmlTag(std::string_view text, const char* name, const char* const* attributes, std::size_t begin,
           std::size_t end)
        : m_Text(text), m_Name(name), m_Attributes(attributes), m_Begin(begin), m_End(end) {}

    /// Without and with its prefix.
    [[nodiscard]] std::string_view name() const noexcept;
    [[nodiscard]] std::string_view qualifiedName() const noexcept { return m_Name; }
    /// "x:", or nothing.
    [[nodiscard]] std::string_view prefix() const noexcept;
    /// The value of an attribute by its name as it is written, prefix and all.
    [[nodiscard]] std::optional<std::string_view> attribute(std::string_view name) const noexcept;
    /// The name, prefix and all, of the attribute with this name behind a prefix.
    [[nodiscard]] std::optional<std::string_view> prefixedAttribute(std::string_view name) const noexcept;

    [[nodiscard]] std::size_t begin() const noexcept { return m_Begin; }
    [[nodiscard]] std::size_t end() const noexcept { return m_End; }
    /// Whether it is an element of its own: <row/>.
    [[nodiscard]] bool isEmpty() const noexcept { return m_Text[m_End - 2] == '/'; }
    [[nodiscard]] std::string_view text() const noexcept { return m_Text.substr(m_Begin, m_End - m_Begin); }
    /// Behind the name, where an attribute can be put.
    [[nodiscard]] std::size_t behindName() const noexcept { return m_Begin + 1 + m_Name.size(); }

 private:
    std::string_view m_Text;
    std::string_view m_Name;
    const char* const* m_Attributes;
    std::size_t m_Begin;
    std::size_t m_End;
};

/// What is told of a text while it is walked. Depth is 1 for the root. An empty element ends with an empty
/// stretch behind it.
struct XmlVisitor {
    std::function<void(const XmlTag&, int depth)> begin;
    std::function<void(std::string_view name, int depth, std::size_t begin, std::size_t end)> end;
    std::function<void(std::string_view characters, int depth)> characters;
};

/// Walks an XML text in UTF-8 and passes on the visitor's first exception. Raises the host's error, which
/// names the part, for a text that is not well formed or in another encoding, has a document type, or is
/// nested or long-winded beyond reason.
void walkXml(std::string_view text, std::string_view part, const XmlVisitor& visitor);

/// A stretch of a text and what takes its place.
struct Edit {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::string text;
};

/// The text after the edits, which do not overlap; those at one place stay in their order.
[[nodiscard]] std::string edited(std::string_view text, std::vector<Edit> edits);

/// The stretch of an attribute in the text of a tag, with the blank in front of it; empty when it is not
/// there.
struct Stretch {
    std::size_t begin = 0;
    std::size_t end = 0;
};
[[nodiscard]] Stretch attributeStretch(std::string_view tag, std::string_view name) noexcept;

/// The edit that gives an attribute of a tag a value, whether it is there or not.
[[nodiscard]] Edit withAttribute(const XmlTag& tag, std::string_view name, std::string_view value);

}  // namespace TBVNonPara::workbook
