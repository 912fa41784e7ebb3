#pragma once

#include <exception>
#include <expat.h>
#include <memory>
#include <string>
#include <string_view>

#include "tbvnonpara/core/error.hpp"
#include "tbvnonpara/files/xml_memory.hpp"

namespace TBVNonPara::workbook {

/// Runs expat over a part and tells a handler what it meets, names as they are written, the root at depth 1:
///
///     void declaration(const char* encoding);  // null where none is named
///     void start(const char* name, const char* const* attributes, std::size_t depth);
///     void end(const char* name, std::size_t depth);
///     void text(std::string_view piece, std::size_t depth);
///
/// It stops at the handler's first exception, which is kept because none may travel through the parser's C
/// code, at a document type, at nesting beyond reason and at what would take memory beyond reason.
template <typename Handler>
class XmlParser {
 public:
    explicit XmlParser(Handler& handler)
        : m_Handler(handler),
          m_Parser(XML_ParserCreate_MM(nullptr, &boundedXmlMemory(), nullptr), XML_ParserFree) {
        if (m_Parser == nullptr) {
            raise(RuntimeError::OutOfMemory);
        }
        XML_SetUserData(m_Parser.get(), this);
        XML_SetXmlDeclHandler(m_Parser.get(), onDeclaration);
        XML_SetElementHandler(m_Parser.get(), onStart, onEnd);
        XML_SetCharacterDataHandler(m_Parser.get(), onText);
        XML_SetStartDoctypeDeclHandler(m_Parser.get(), onDocumentType);
    }
    // The parser holds its address.
    XmlParser(const XmlParser&) = delete;
    XmlParser& operator=(const XmlParser&) = delete;
    ~XmlParser() = default;

    [[nodiscard]] XML_Parser get() const noexcept { return m_Parser.get(); }

    /// Why it stopped: the handler's exception, or else a problem in words.
    [[nodiscard]] const std::exception_ptr& failure() const noexcept { return m_Failure; }
    [[nodiscard]] std::string problem() const {
        if (!m_Problem.empty()) {
            return m_Problem;
        }
        const XML_Error error = XML_GetErrorCode(m_Parser.get());
        return error == XML_ERROR_NO_MEMORY
                   ? "tags or names of many megabytes; the file is damaged or made to do harm"
                   : XML_ErrorString(error);
    }

 private:
    static constexpr std::size_t deepestNesting = 256;

    static XmlParser& of(void* parser) noexcept { return *static_cast<XmlParser*>(parser); }

    void stop() noexcept { XML_StopParser(m_Parser.get(), XML_FALSE); }

    void object(std::string problem) {
        m_Problem = std::move(problem);
        stop();
    }

    /// A parser that was stopped at the start of an empty element still tells its end.
    template <typename Action>
    void guarded(Action action) noexcept {
        if (m_Failure != nullptr || !m_Problem.empty()) {
            return;
        }
        try {
            action();
        } catch (...) {
            m_Failure = std::current_exception();
            stop();
        }
    }

    static void onDeclaration(void* parser, const char* /*version*/, const char* encoding,
                              int /*standalone*/) noexcept {
        of(parser).guarded([&] { of(parser).m_Handler.declaration(encoding); });
    }
    static void onDocumentType(void* parser, const char* /*name*/, const char* /*system*/,
                               const char* /*open*/, int /*internal*/) noexcept {
        of(parser).guarded([&] {
            of(parser).object("a document type, which no workbook needs and which could pull in other files");
        });
    }
    static void onStart(void* parser, const char* name, const char** attributes) noexcept {
        XmlParser& self = of(parser);
        self.guarded([&] {
            self.m_Depth += 1;
            if (self.m_Depth > deepestNesting) {
                self.object("elements nested more than " + std::to_string(deepestNesting) + " deep");
            } else {
                self.m_Handler.start(name, attributes, self.m_Depth);
            }
        });
    }
    static void onEnd(void* parser, const char* name) noexcept {
        XmlParser& self = of(parser);
        self.guarded([&] {
            self.m_Handler.end(name, self.m_Depth);
            self.m_Depth -= 1;
        });
    }
    static void onText(void* parser, const char* text, int length) noexcept {
        XmlParser& self = of(parser);
        self.guarded([&] { self.m_Handler.text({text, static_cast<std::size_t>(length)}, self.m_Depth); });
    }

    Handler& m_Handler;
    std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> m_Parser;
    std::size_t m_Depth = 0;
    std::exception_ptr m_Failure;
    std::string m_Problem;
};

}  // namespace TBVNonPara::workbook
