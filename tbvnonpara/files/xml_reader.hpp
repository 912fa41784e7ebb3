#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tbvnonpara/files/container.hpp"
#include "tbvnonpara/files/xml_names.hpp"

namespace TBVNonPara::workbook {

/// The attributes of an element, as long as its start is handled.
class XmlAttributes {
 public:
    XmlAttributes(const char* const* list, const XmlNames& names) : m_List(list), m_Names(names) {}

    [[nodiscard]] std::optional<std::string_view> find(std::string_view local) const {
        return find(Vocabulary::None, local);
    }
    [[nodiscard]] std::optional<std::string_view> find(Vocabulary vocabulary, std::string_view local) const;

    /// Names and values in turn, ending with a null pointer, the names as they are written.
    [[nodiscard]] const char* const* list() const noexcept { return m_List; }

 private:
    const char* const* m_List;
    const XmlNames& m_Names;
};

/// What reads the elements of a part. It may raise errors; they come out of readXml with the place in front.
class XmlHandler {
 public:
    XmlHandler() = default;
    XmlHandler(const XmlHandler&) = delete;
    XmlHandler& operator=(const XmlHandler&) = delete;
    virtual ~XmlHandler() = default;

    /// Says whether the inside of the element is wanted: without it there is no text, no inner element and
    /// no end.
    virtual bool start(const XmlName& name, const XmlAttributes& attributes) = 0;
    /// The innermost element that was wanted ends.
    virtual void end() = 0;
    /// Text directly inside a wanted element, piece by piece.
    virtual void text(std::string_view piece) = 0;

    /// The end tag of elements that the handler may take by itself, where it now stands among them: "</row>".
    /// No text for none.
    [[nodiscard]] virtual std::string_view endOfPlain() const { return {}; }
    /// Takes elements at the beginning of a text by itself, as many as it knows to be well formed. Returns
    /// how many bytes they are.
    virtual std::size_t takePlain(std::string_view /*text*/) { return 0; }
};

/// Reads a part, piece by piece, in UTF-8, UTF-16, ISO-8859-1 or ASCII. Nothing outside the part is ever
/// read. Raises the host's error, which names the part, if it has a name, and the line, for a part that is
/// missing, damaged or not well formed, has a document type, or is nested or long-winded beyond reason.
void readXml(const Parts& parts, const std::string& part, XmlHandler& handler);

/// The same, but lets the handler take plain elements, which begin behind this tag, past the parser. A place
/// that an error names is not where it is in the part: who meets one reads anew.
void readXmlPastPlain(const Parts& parts, const std::string& part, std::string_view beforePlain,
                      XmlHandler& handler);

}  // namespace TBVNonPara::workbook
