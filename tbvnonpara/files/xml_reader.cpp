#include "tbvnonpara/files/xml_reader.hpp"

#include <algorithm>
#include <exception>

#include "tbvnonpara/core/error.hpp"
#include "tbvnonpara/files/xml_parser.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

constexpr int pieceSize = 1 << 16;

/// Finds out what the names mean and leaves out what is not wanted.
class PartReader {
 public:
    PartReader(const std::string& part, XmlHandler& handler) : m_Part(part), m_Handler(handler) {}

    void read(PartStream& stream) {
        bool last = false;
        while (!last) {
            void* const buffer = XML_GetBuffer(m_Parser.get(), pieceSize);
            if (buffer == nullptr) {
                fail();
            }
            const std::size_t size = stream.read(static_cast<char*>(buffer), pieceSize);
            last = size == 0;
            if (XML_ParseBuffer(m_Parser.get(), static_cast<int>(size), last ? 1 : 0) != XML_STATUS_OK) {
                fail();
            }
        }
    }

    void readPastPlain(PartStream& stream, std::string_view beforePlain) {
        if (parseUntil(stream, beforePlain)) {
            takePlain(stream);
        }
        while (!m_Ended || !rest().empty()) {
            parse(rest().size());
            fill(stream);
        }
        parseEnd();
    }

    void declaration(const char* /*encoding*/) noexcept {}

    void start(const char* name, const char* const* attributes, std::size_t depth) {
        if (m_Unwanted > 0) {
            m_Unwanted += 1;
            return;
        }
        if (*attributes != nullptr) {
            m_Names.enter(depth, attributes);
        }
        if (!m_Handler.start(m_Names.element(name), XmlAttributes(attributes, m_Names))) {
            m_Unwanted = 1;
        }
        noteEnd(depth);
    }

    void end(const char* /*name*/, std::size_t depth) {
        if (m_Unwanted > 0) {
            m_Unwanted -= 1;
        } else {
            m_Handler.end();
        }
        m_Names.leave(depth);
        noteEnd(depth);
    }

    void text(std::string_view piece, std::size_t /*depth*/) {
        if (m_Unwanted == 0) {
            m_Handler.text(piece);
        }
    }

 private:
    [[nodiscard]] std::string_view rest() const noexcept { return std::string_view(m_Text).substr(m_At); }

    /// More of the part, behind what is there already.
    void fill(PartStream& stream) {
        m_Text.erase(0, m_At);
        m_At = 0;
        const std::size_t before = m_Text.size();
        m_Text.resize(before + pieceSize);
        const std::size_t size = stream.read(m_Text.data() + before, pieceSize);
        m_Text.resize(before + size);
        m_Ended = size == 0;
    }

    /// Gives the parser so many bytes.
    void parse(std::size_t size) {
        if (XML_Parse(m_Parser.get(), rest().data(), static_cast<int>(size), 0) != XML_STATUS_OK) {
            fail();
        }
        m_Parsed += size;
        m_At += size;
    }

    void parseEnd() {
        if (XML_Parse(m_Parser.get(), nullptr, 0, 1) != XML_STATUS_OK) {
            fail();
        }
    }

    /// Where the last tag ended, as far as rows and what they stand in are concerned.
    void noteEnd(std::size_t depth) noexcept {
        constexpr std::size_t deepest = 3;
        if (depth <= deepest) {
            m_TagEnd = static_cast<std::size_t>(XML_GetCurrentByteIndex(m_Parser.get())) +
                       static_cast<std::size_t>(XML_GetCurrentByteCount(m_Parser.get()));
        }
    }

    /// Whether the parser has told all that it was given, the end of a tag last: it is in no comment and the
    /// like.
    [[nodiscard]] bool isBetweenTags() const noexcept { return m_TagEnd == m_Parsed && m_Unwanted == 0; }

    /// Gives the parser everything up to a tag. False where there is none.
    bool parseUntil(PartStream& stream, std::string_view tag) {
        fill(stream);
        while (true) {
            const std::size_t found = rest().find(tag);
            if (found != std::string_view::npos) {
                parse(found + tag.size());
                return isBetweenTags();
            }
            if (m_Ended) {
                return false;
            }
            // A tag may stand across two pieces.
            parse(rest().size() - std::min(rest().size(), tag.size()));
            fill(stream);
        }
    }

    /// Lets the handler and the parser take turns until there is nothing plain any more.
    void takePlain(PartStream& stream) {
        constexpr int patience = 1000;  // rows that are not plain, one after the other
        constexpr std::size_t longest = 1 << 20U;
        int others = 0;
        while (!m_Handler.endOfPlain().empty() && isBetweenTags() && others < patience) {
            while (const std::size_t size = m_Handler.takePlain(rest())) {
                m_At += size;
                others = 0;
            }
            const std::string_view end = m_Handler.endOfPlain();
            const std::size_t found = rest().find(end);
            if (found != std::string_view::npos) {
                parse(found + end.size());
                others += 1;
            } else if (m_Ended || rest().size() > longest) {
                return;
            } else {
                fill(stream);
            }
        }
    }

    [[nodiscard]] std::string place() const {
        return (m_Part.empty() ? "" : "part " + m_Part + ", ") + "line " +
               std::to_string(XML_GetCurrentLineNumber(m_Parser.get())) + ", column " +
               std::to_string(XML_GetCurrentColumnNumber(m_Parser.get()) + 1) + ": ";
    }

    [[noreturn]] void fail() const {
        if (m_Parser.failure() != nullptr) {
            try {
                std::rethrow_exception(m_Parser.failure());
            } catch (const Error& error) {
                throw Error(error.number(), place() + error.description());
            }
        }
        refuse(place() + m_Parser.problem());
    }

    const std::string& m_Part;
    XmlHandler& m_Handler;
    XmlParser<PartReader> m_Parser{*this};
    XmlNames m_Names;
    /// How many elements are open from the outermost unwanted one on.
    std::size_t m_Unwanted = 0;
    /// What of the part neither the parser nor the handler has had.
    std::string m_Text;
    std::size_t m_At = 0;
    bool m_Ended = false;
    std::size_t m_Parsed = 0;
    std::size_t m_TagEnd = 0;
};

}  // namespace

std::optional<std::string_view> XmlAttributes::find(Vocabulary vocabulary, std::string_view local) const {
    for (const char* const* name = m_List; *name != nullptr; name += 2) {
        const std::string_view written = *name;
        if (written.ends_with(local) && m_Names.attribute(written) == XmlName{vocabulary, local}) {
            return name[1];
        }
    }
    return std::nullopt;
}

void readXml(const Parts& parts, const std::string& part, XmlHandler& handler) {
    PartReader(part, handler).read(*parts.open(part));
}

void readXmlPastPlain(const Parts& parts, const std::string& part, std::string_view beforePlain,
                      XmlHandler& handler) {
    PartReader(part, handler).readPastPlain(*parts.open(part), beforePlain);
}

}  // namespace TBVNonPara::workbook
