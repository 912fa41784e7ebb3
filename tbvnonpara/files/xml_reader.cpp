#include "tbvnonpara/files/xml_reader.hpp"

#include <exception>
#include <expat.h>
#include <memory>

#include "tbvnonpara/core/error.hpp"
#include "tbvnonpara/files/xml_memory.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

constexpr std::size_t deepestNesting = 256;
constexpr int pieceSize = 1 << 16;

/// Passes the parser's events on. Exceptions do not travel through the parser: the first one stops it and is
/// kept.
class Events {
 public:
    Events(XML_Parser parser, XmlHandler& handler) : m_Parser(parser), m_Handler(handler) {
        XML_SetUserData(parser, this);
        XML_SetElementHandler(parser, onStart, onEnd);
        XML_SetCharacterDataHandler(parser, onText);
        XML_SetStartDoctypeDeclHandler(parser, onDocumentType);
    }

    [[nodiscard]] const std::exception_ptr& failure() const noexcept { return m_Failure; }

 private:
    static Events& of(void* events) noexcept { return *static_cast<Events*>(events); }

    /// The parser still tells the end of an empty element whose start stopped it.
    template <typename Action>
    void guarded(Action action) noexcept {
        if (m_Failure != nullptr) {
            return;
        }
        try {
            action();
        } catch (...) {
            m_Failure = std::current_exception();
            XML_StopParser(m_Parser, XML_FALSE);
        }
    }

    static void onStart(void* events, const char* name, const char** attributes) noexcept {
        of(events).guarded([&] { of(events).start(name, attributes); });
    }
    static void onEnd(void* events, const char* /*name*/) noexcept {
        of(events).guarded([&] { of(events).end(); });
    }
    static void onText(void* events, const char* text, int length) noexcept {
        Events& self = of(events);
        if (self.m_Unwanted == 0) {
            self.guarded([&] { self.m_Handler.text({text, static_cast<std::size_t>(length)}); });
        }
    }
    static void onDocumentType(void* events, const char* /*name*/, const char* /*system*/,
                               const char* /*open*/, int /*internal*/) noexcept {
        of(events).guarded([] {
            refuse(
                "a document type, which no workbook needs and which could pull in other "
                "files");
        });
    }

    void start(const char* name, const char* const* attributes) {
        m_Depth += 1;
        if (m_Depth > deepestNesting) {
            refuse("elements nested more than " + std::to_string(deepestNesting) + " deep");
        }
        if (m_Unwanted > 0) {
            m_Unwanted += 1;
            return;
        }
        if (*attributes != nullptr) {
            m_Names.enter(m_Depth, attributes);
        }
        if (!m_Handler.start(m_Names.element(name), XmlAttributes(attributes, m_Names))) {
            m_Unwanted = 1;
        }
    }

    void end() {
        if (m_Unwanted > 0) {
            m_Unwanted -= 1;
        } else {
            m_Handler.end();
        }
        m_Names.leave(m_Depth);
        m_Depth -= 1;
    }

    XML_Parser m_Parser;
    XmlHandler& m_Handler;
    XmlNames m_Names;
    std::size_t m_Depth = 0;
    /// How many elements are open from the outermost unwanted one on.
    std::size_t m_Unwanted = 0;
    std::exception_ptr m_Failure;
};

using Parser = std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)>;

std::string placeIn(const std::string& part, XML_Parser parser) {
    return "part " + part + ", line " + std::to_string(XML_GetCurrentLineNumber(parser)) + ", column " +
           std::to_string(XML_GetCurrentColumnNumber(parser) + 1) + ": ";
}

[[noreturn]] void fail(const std::string& part, XML_Parser parser, const Events& events) {
    const std::string place = placeIn(part, parser);
    if (events.failure() != nullptr) {
        try {
            std::rethrow_exception(events.failure());
        } catch (const Error& error) {
            throw Error(error.number(), place + error.description());
        }
    }
    if (XML_GetErrorCode(parser) == XML_ERROR_NO_MEMORY) {
        refuse(place + "tags or names of many megabytes; the file is damaged or made to do harm");
    }
    refuse(place + XML_ErrorString(XML_GetErrorCode(parser)));
}

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
    const std::unique_ptr<PartStream> stream = parts.open(part);
    const Parser parser(XML_ParserCreate_MM(nullptr, &boundedXmlMemory(), nullptr), XML_ParserFree);
    if (parser == nullptr) {
        raise(RuntimeError::OutOfMemory);
    }
    const Events events(parser.get(), handler);
    bool last = false;
    while (!last) {
        void* const buffer = XML_GetBuffer(parser.get(), pieceSize);
        if (buffer == nullptr) {
            fail(part, parser.get(), events);
        }
        const std::size_t size = stream->read(static_cast<char*>(buffer), pieceSize);
        last = size == 0;
        if (XML_ParseBuffer(parser.get(), static_cast<int>(size), last ? 1 : 0) != XML_STATUS_OK) {
            fail(part, parser.get(), events);
        }
    }
}

}  // namespace TBVNonPara::workbook
