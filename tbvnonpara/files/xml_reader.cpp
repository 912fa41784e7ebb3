#include "tbvnonpara/files/xml_reader.hpp"

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
    }

    void end(const char* /*name*/, std::size_t depth) {
        if (m_Unwanted > 0) {
            m_Unwanted -= 1;
        } else {
            m_Handler.end();
        }
        m_Names.leave(depth);
    }

    void text(std::string_view piece, std::size_t /*depth*/) {
        if (m_Unwanted == 0) {
            m_Handler.text(piece);
        }
    }

 private:
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

}  // namespace TBVNonPara::workbook
