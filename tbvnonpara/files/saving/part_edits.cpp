#include "tbvnonpara/files/saving/part_edits.hpp"

#include <utility>
#include <vector>

#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/files/saving/cell_text.hpp"
#include "tbvnonpara/files/saving/xml_walk.hpp"

namespace TBVNonPara::workbook {

std::string withLastChild(const std::string& text, std::string_view part, std::string_view parent,
                          const std::string& element) {
    std::vector<Edit> edits;
    XmlVisitor visitor;
    std::string tag;
    bool isEmpty = false;
    std::size_t tagEnd = 0;
    visitor.begin = [&](const XmlTag& found, int) {
        if (found.name() == parent) {
            tag = found.qualifiedName();
            isEmpty = found.isEmpty();
            tagEnd = found.end();
        }
    };
    visitor.end = [&](std::string_view name, int, std::size_t begin, std::size_t) {
        if (name == parent) {
            edits = {isEmpty ? Edit{tagEnd - 2, tagEnd, '>' + element + "</" + tag + '>'}
                             : Edit{begin, begin, element}};
        }
    };
    walkXml(text, part, visitor);
    return edited(text, std::move(edits));
}

std::string rootPrefix(const std::string& text, std::string_view part) {
    std::string prefix;
    XmlVisitor visitor;
    visitor.begin = [&](const XmlTag& tag, int depth) {
        if (depth == 1) {
            prefix = tag.prefix();
        }
    };
    walkXml(text, part, visitor);
    return prefix;
}

std::string xmlAttribute(std::string_view name, std::string_view value) {
    std::string text = ' ' + std::string(name) + "=\"";
    appendEscaped(value, text);
    return text + '"';
}

std::string withoutElements(const std::string& text, std::string_view part, std::string_view name,
                            std::string_view value) {
    std::vector<Edit> edits;
    int removing = 0;
    XmlVisitor visitor;
    visitor.begin = [&](const XmlTag& tag, int depth) {
        if (depth == 2 && equalIgnoringCase(tag.attribute(name).value_or(""), value)) {
            edits.push_back({tag.begin(), tag.end(), ""});
            removing = depth;
        }
    };
    visitor.end = [&](std::string_view, int depth, std::size_t, std::size_t end) {
        if (depth == removing) {
            edits.back().end = end;
            removing = 0;
        }
    };
    walkXml(text, part, visitor);
    return edited(text, std::move(edits));
}

}  // namespace TBVNonPara::workbook
