#include "tbvnonpara/files/xml_names.hpp"

#include <algorithm>
#include <array>

#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

struct Address {
    std::string_view text;
    Vocabulary vocabulary;
};

constexpr auto addresses = std::to_array<Address>({
    {"http://schemas.openxmlformats.org/spreadsheetml/2006/main", Vocabulary::Spreadsheet},
    {"http://purl.oclc.org/ooxml/spreadsheetml/main", Vocabulary::Spreadsheet},
    {"http://schemas.openxmlformats.org/officeDocument/2006/relationships", Vocabulary::Relationships},
    {"http://purl.oclc.org/ooxml/officeDocument/relationships", Vocabulary::Relationships},
    {"http://schemas.openxmlformats.org/package/2006/relationships", Vocabulary::PackageRelationships},
    {"urn:oasis:names:tc:opendocument:xmlns:office:1.0", Vocabulary::Office},
    {"urn:oasis:names:tc:opendocument:xmlns:table:1.0", Vocabulary::Table},
    {"urn:oasis:names:tc:opendocument:xmlns:text:1.0", Vocabulary::Text},
    {"urn:oasis:names:tc:opendocument:xmlns:style:1.0", Vocabulary::Style},
    {"urn:oasis:names:tc:opendocument:xmlns:config:1.0", Vocabulary::Config},
    {"urn:oasis:names:tc:opendocument:xmlns:manifest:1.0", Vocabulary::Manifest},
    {"urn:org:documentfoundation:names:experimental:calc:xmlns:calcext:1.0", Vocabulary::CalcExtension},
    {"http://www.gnumeric.org/odf-extension/1.0", Vocabulary::GnumericExtension},
});

Vocabulary vocabularyAt(std::string_view address) noexcept {
    if (address.empty()) {
        return Vocabulary::None;
    }
    const auto* const found = std::ranges::find(addresses, address, &Address::text);
    return found == std::end(addresses) ? Vocabulary::Unknown : found->vocabulary;
}

/// Documents declare some forty; looking up a prefix walks through all of them.
constexpr std::size_t mostDeclarations = 1000;

constexpr std::size_t mostFound = 16;

constexpr std::string_view keyword = "xmlns";

}  // namespace

void XmlNames::enter(std::size_t depth, const char* const* attributes) {
    for (; *attributes != nullptr; attributes += 2) {
        const char* const name = *attributes;
        if (name[0] != 'x' || !std::string_view(name).starts_with(keyword)) {
            continue;
        }
        const std::string_view rest = std::string_view(name).substr(keyword.size());
        if (rest.empty() || rest.front() == ':') {
            declare(depth, rest.substr(rest.empty() ? 0 : 1), attributes[1]);
        }
    }
}

void XmlNames::declare(std::size_t depth, std::string_view prefix, std::string_view address) {
    if (m_Declarations.size() >= mostDeclarations) {
        refuse("more than " + std::to_string(mostDeclarations) + " namespaces");
    }
    m_Found.clear();
    m_Declarations.push_back({depth, std::string(prefix), vocabularyAt(address)});
    if (prefix.empty()) {
        m_Default = m_Declarations.back().vocabulary;
    }
}

void XmlNames::leave(std::size_t depth) noexcept {
    if (m_Declarations.empty() || m_Declarations.back().depth < depth) {
        return;
    }
    while (!m_Declarations.empty() && m_Declarations.back().depth >= depth) {
        m_Declarations.pop_back();
    }
    m_Found.clear();
    const Declaration* const byDefault = declaration("");
    m_Default = byDefault == nullptr ? Vocabulary::None : byDefault->vocabulary;
}

const XmlNames::Declaration* XmlNames::declaration(std::string_view prefix) const noexcept {
    const auto found = std::find_if(m_Declarations.rbegin(), m_Declarations.rend(),
                                    [=](const Declaration& own) { return own.prefix == prefix; });
    return found == m_Declarations.rend() ? nullptr : &*found;
}

Vocabulary XmlNames::find(std::string_view prefix) const {
    const auto before = std::ranges::find(m_Found, prefix, &Found::prefix);
    if (before != m_Found.end()) {
        return before->vocabulary;
    }
    const Declaration* const own = declaration(prefix);
    const Vocabulary vocabulary = own == nullptr ? Vocabulary::Unknown : own->vocabulary;
    if (m_Found.size() == mostFound) {
        m_Found.clear();
    }
    m_Found.push_back({std::string(prefix), vocabulary});
    return vocabulary;
}

XmlName XmlNames::element(const char* qualified) const {
    // Most names are a letter or two long: one walk finds the colon and the end.
    const char* colon = nullptr;
    const char* end = qualified;
    for (; *end != '\0'; ++end) {
        colon = colon == nullptr && *end == ':' ? end : colon;
    }
    if (colon == nullptr) {
        return {m_Default, {qualified, end}};
    }
    return {find({qualified, colon}), {colon + 1, end}};
}

XmlName XmlNames::attribute(std::string_view qualified) const {
    const std::size_t colon = qualified.find(':');
    if (colon == std::string_view::npos) {
        return {Vocabulary::None, qualified};
    }
    return {find(qualified.substr(0, colon)), qualified.substr(colon + 1)};
}

}  // namespace TBVNonPara::workbook
