#include "tbvnonpara/files/saving/xml_walk.hpp"

#include <algorithm>
#include <exception>
#include <expat.h>
#include <limits>
#include <memory>
#include <utility>

#include "tbvnonpara/core/error.hpp"
#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

std::string_view localName(std::string_view name) noexcept {
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

/// What the parser hands from call to call. Errors of the visitor wait until the parser has returned.
struct Walk {
    std::string_view text;
    const XmlVisitor* visitor;
    XML_Parser parser;
    int depth = 0;
    bool foreignEncoding = false;
    std::exception_ptr error;

    void guarded(const auto& call) noexcept {
        try {
            call();
        } catch (...) {
            error = std::current_exception();
            XML_StopParser(parser, XML_FALSE);
        }
    }
    [[nodiscard]] std::size_t here() const {
        return static_cast<std::size_t>(XML_GetCurrentByteIndex(parser));
    }
    [[nodiscard]] std::size_t length() const {
        return static_cast<std::size_t>(XML_GetCurrentByteCount(parser));
    }
};

void onBegin(void* data, const char* name, const char** attributes) {
    Walk& walk = *static_cast<Walk*>(data);
    walk.depth += 1;
    if (walk.visitor->begin) {
        walk.guarded([&] {
            walk.visitor->begin(XmlTag(walk.text, name, attributes, walk.here(), walk.here() + walk.length()),
                                walk.depth);
        });
    }
}

void onEnd(void* data, const char* name) {
    Walk& walk = *static_cast<Walk*>(data);
    if (walk.visitor->end) {
        walk.guarded([&] {
            walk.visitor->end(localName(name), walk.depth, walk.here(), walk.here() + walk.length());
        });
    }
    walk.depth -= 1;
}

void onCharacters(void* data, const char* characters, int length) {
    Walk& walk = *static_cast<Walk*>(data);
    walk.guarded([&] {
        walk.visitor->characters({characters, static_cast<std::size_t>(length)}, walk.depth);
    });
}

void onDeclaration(void* data, const char*, const char* encoding, int) {
    Walk& walk = *static_cast<Walk*>(data);
    walk.foreignEncoding = encoding != nullptr && !equalIgnoringCase(encoding, "UTF-8") &&
                           !equalIgnoringCase(encoding, "US-ASCII");
}

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
    const std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser(
        XML_ParserCreate(nullptr), &XML_ParserFree);
    if (parser == nullptr) {
        raise(RuntimeError::OutOfMemory);
    }
    Walk walk{text, &visitor, parser.get(), 0, false, nullptr};
    XML_SetUserData(parser.get(), &walk);
    XML_SetElementHandler(parser.get(), onBegin, onEnd);
    XML_SetXmlDeclHandler(parser.get(), onDeclaration);
    if (visitor.characters) {
        XML_SetCharacterDataHandler(parser.get(), onCharacters);
    }
    const XML_Status status = XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), XML_TRUE);
    if (walk.error) {
        std::rethrow_exception(walk.error);
    }
    if (status != XML_STATUS_OK) {
        refuse(where + "is damaged: " + XML_ErrorString(XML_GetErrorCode(parser.get())) + ".");
    }
    if (walk.foreignEncoding) {
        refuse(where + "is not stored in UTF-8 and cannot be changed; save the workbook anew first.");
    }
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
    constexpr std::string_view blanks = " \t\r\n";
    std::size_t position = tag.find_first_of(blanks);
    while (position < tag.size()) {
        const std::size_t start = tag.find_first_not_of(blanks, position);
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
