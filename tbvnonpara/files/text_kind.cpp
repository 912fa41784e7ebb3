#include "tbvnonpara/files/text_kind.hpp"

#include <algorithm>
#include <array>

#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/files/container_kind.hpp"
#include "tbvnonpara/files/file_values.hpp"

namespace TBVNonPara::workbook {

namespace {

/// Upper and lower case are the same.
struct TextSignature {
    std::string_view beginning;
    std::string_view kind;
};

constexpr auto documents = std::to_array<TextSignature>({
    {R"({\rtf)", "an RTF document"},
    {"%PDF-", "a PDF document"},
    {"%!PS", "a PostScript document"},
    {"@relation", "a Weka data file (ARFF)"},
    {"HEADER RECORD*******", "a SAS transport file"},
});

/// What the text of an XML document mentions near its beginning.
constexpr auto vocabularies = std::to_array<TextSignature>({
    {"urn:schemas-microsoft-com:office:spreadsheet", "a workbook in the XML of 2003 (SpreadsheetML)"},
    {"http://www.gnumeric.org/", "a Gnumeric workbook"},
    {"http://www.w3.org/1999/xhtml", "a web page"},
});

std::string_view withoutLeadingBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(xmlBlanks), text.size()));
    return text;
}

bool begins(std::string_view text, std::string_view with) {
    return equalIgnoringCase(text.substr(0, with.size()), with);
}

std::string_view takeLine(std::string_view& text) {
    const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
    text.remove_prefix(line.size());
    text.remove_prefix(text.starts_with("\r\n") ? 2 : std::min<std::size_t>(text.size(), 1));
    return line;
}

/// The name of the tag that a text begins with, empty when it begins with none. "<LOD" and "<0.5" are values
/// below a limit, so that a name must be followed by the tag's end or by attributes.
std::string_view leadingTag(std::string_view text) {
    constexpr std::string_view nameCharacters =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789:_-.";
    text.remove_prefix(1);
    const std::string_view name = text.substr(0, text.find_first_not_of(nameCharacters));
    if (name.empty() || (name.front() >= '0' && name.front() <= '9')) {
        return {};
    }
    std::string_view rest = withoutLeadingBlanks(text.substr(name.size()));
    if (rest.starts_with('>') || rest.starts_with("/>")) {
        return name;
    }
    rest.remove_prefix(std::min(rest.find_first_not_of(nameCharacters), rest.size()));
    return rest.starts_with('=') ? name : std::string_view();
}

bool isTagOfAPage(std::string_view name) {
    constexpr auto tags = std::to_array<std::string_view>(
        {"html", "head", "body", "table", "meta", "div", "style", "title", "p", "tr", "font", "center"});
    return std::ranges::any_of(tags, [=](std::string_view tag) { return equalIgnoringCase(name, tag); });
}

std::string kindOfXml(std::string_view text) {
    for (const TextSignature& vocabulary : vocabularies) {
        if (text.find(vocabulary.beginning) != std::string_view::npos) {
            return std::string(vocabulary.kind);
        }
    }
    return "an XML document";
}

/// The kind of a markup, empty for anything else.
std::string kindOfMarkup(std::string_view text) {
    if (begins(text, "<!doctype html")) {
        return "a web page";
    }
    if (begins(text, "<?xml") || begins(text, "<!doctype") || text.starts_with("<!--")) {
        return kindOfXml(text);
    }
    const std::string_view tag = text.starts_with('<') ? leadingTag(text) : std::string_view();
    if (tag.empty()) {
        return {};
    }
    return isTagOfAPage(tag) ? "a web page" : kindOfXml(text);
}

/// Lines of fields may begin with a bracket: intervals ("[1,2)") and what R prints ("[1] 2.5"). An array of
/// numbers is one pair of brackets around all there is.
bool isJson(std::string_view text) {
    const char first = text.empty() ? ' ' : text.front();
    const std::string_view inside = withoutLeadingBlanks(text.substr(std::min<std::size_t>(text.size(), 1)));
    if (first == '{') {
        return inside.starts_with('"') || inside.starts_with('}');
    }
    if (first != '[' || inside.empty()) {
        return false;
    }
    const bool nested = std::string_view("{[\"").find(inside.front()) != std::string_view::npos;
    const std::size_t close = inside.find_first_of("])");
    const bool numbers = inside.find_first_not_of("0123456789+-.eE, \t\r\n") == close &&
                         (close == std::string_view::npos ||
                          (inside[close] == ']' && withoutLeadingBlanks(inside.substr(close + 1)).empty()));
    return nested || numbers;
}

/// "ID;P" alone may begin a header with semicolons.
bool isSymbolicLink(std::string_view text) {
    constexpr auto records = std::to_array<std::string_view>(
        {"P;P", "B;X", "B;Y", "C;X", "C;Y", "F;", "O;L", "O;V", "O;K", "O;E", "O;D", "O;P", "NN;", "W;"});
    if (!takeLine(text).starts_with("ID;P")) {
        return false;
    }
    const std::string_view second = takeLine(text);
    return std::ranges::any_of(records, [=](std::string_view record) { return second.starts_with(record); });
}

bool isDataInterchange(std::string_view text) {
    const bool table = takeLine(text) == "TABLE";
    return table && takeLine(text) == "0,1";
}

std::string kindOf(std::string_view text) {
    for (const TextSignature& document : documents) {
        if (begins(text, document.beginning)) {
            return std::string(document.kind);
        }
    }
    if (isSymbolicLink(text)) {
        return "a symbolic link file (SYLK)";
    }
    if (isDataInterchange(text)) {
        return "a data interchange file (DIF)";
    }
    return isJson(text) ? "JSON" : kindOfMarkup(text);
}

}  // namespace

std::optional<std::string> foreignTextKind(std::string_view beginning) {
    std::string_view text = beginning;
    text.remove_prefix(text.starts_with("\xEF\xBB\xBF") ? 3 : 0);
    const std::string kind = kindOf(withoutLeadingBlanks(text));
    return kind.empty() ? std::nullopt : std::optional("it is " + kind + std::string(saveAs));
}

}  // namespace TBVNonPara::workbook
