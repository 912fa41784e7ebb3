#include "tbvnonpara/files/saving/workbook_part.hpp"

#include <algorithm>
#include <charconv>
#include <set>
#include <utility>

#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/files/saving/part_edits.hpp"
#include "tbvnonpara/files/saving/style_part.hpp"
#include "tbvnonpara/files/saving/xml_walk.hpp"
#include "tbvnonpara/files/xlsx/text.hpp"
#include "tbvnonpara/workbook/book.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

constexpr std::string_view contentTypesPart = "[Content_Types].xml";
constexpr std::string_view contentTypes = "application/vnd.openxmlformats-officedocument.spreadsheetml.";

/// What the types of links begin with, and the name of the vocabulary that sheets point at them in.
std::string linkVocabulary(bool strict) {
    return strict ? "http://purl.oclc.org/ooxml/officeDocument/relationships"
                  : "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
}

/// Whether the names of a root element are those of the strict form.
bool isInStrictForm(const XmlTag& root) {
    const std::string_view prefix = root.prefix();
    const std::string declaration =
        prefix.empty() ? "xmlns" : "xmlns:" + std::string(prefix.substr(0, prefix.size() - 1));
    return root.attribute(declaration) == spreadsheetVocabulary(true);
}

}  // namespace

std::string_view spreadsheetVocabulary(bool strict) noexcept {
    return strict ? "http://purl.oclc.org/ooxml/spreadsheetml/main"
                  : "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
}

WorkbookPart::WorkbookPart(Package& package) : m_Package(package) {
    for (const XlsxRelationship& link : package.linksOf("")) {
        if (link.kind == "officeDocument") {
            m_Part = link.target;
        }
    }
    if (m_Part.empty() || !package.has(m_Part)) {
        refuse(inQuotes(package.fileName()) +
               " is not a workbook that can be copied: it names no workbook part.");
    }
    m_Links = package.linksOf(m_Part);
    read();
}

void WorkbookPart::read() {
    XmlVisitor visitor;
    visitor.begin = [&](const XmlTag& tag, int depth) {
        if (depth == 1) {
            m_IsStrict = isInStrictForm(tag);
        }
        if (depth != 3 || tag.name() != "sheet") {
            return;
        }
        // The link is the "id" with a prefix, usually r:id; each file declares its own.
        const auto idName = tag.prefixedAttribute("id");
        const std::string_view id = idName ? *tag.attribute(*idName) : "";
        ListedSheet sheet{unescapedXlsx(std::string(tag.attribute("name").value_or(""))),
                          std::string(tag.attribute("sheetId").value_or("")), "", false};
        const auto link = std::ranges::find(m_Links, id, &XlsxRelationship::id);
        if (link != m_Links.end()) {
            sheet.part = link->target;
            sheet.isWorksheet = link->kind == "worksheet";
        }
        m_Sheets.push_back(std::move(sheet));
    };
    walkXml(m_Package.read(m_Part), m_Part, visitor);
}

bool WorkbookPart::isTaken(std::string_view name) const {
    return std::ranges::any_of(m_Sheets,
                               [=](const ListedSheet& sheet) { return equalIgnoringCase(sheet.name, name); });
}

const ListedSheet& WorkbookPart::sheet(std::string_view name) const {
    for (const ListedSheet& sheet : m_Sheets) {
        if (equalIgnoringCase(sheet.name, name) && sheet.isWorksheet && m_Package.has(sheet.part)) {
            return sheet;
        }
    }
    refuse("There is no worksheet " + inQuotes(name) + " in the workbook " + inQuotes(m_Package.fileName()) +
           '.');
}

std::string WorkbookPart::textOf(const std::string& part) const {
    const auto known = std::ranges::find(m_Changed, part, &std::pair<std::string, std::string>::first);
    return known == m_Changed.end() ? m_Package.read(part) : known->second;
}

void WorkbookPart::change(const std::string& part, std::string text) {
    std::erase_if(m_Changed, [&](const auto& changed) { return changed.first == part; });
    m_Changed.emplace_back(part, text);
    m_Package.put(part, std::move(text));
}

std::string WorkbookPart::link(const std::string& part, std::string_view type) {
    std::size_t number = m_Links.size() + 1;
    const auto idOf = [](std::size_t candidate) { return "rId" + std::to_string(candidate); };
    while (std::ranges::find(m_Links, idOf(number), &XlsxRelationship::id) != m_Links.end()) {
        number += 1;
    }
    std::string id = idOf(number);
    const std::string links = relationshipsPart(m_Part);
    const std::string text = textOf(links);
    change(links,
           withLastChild(text, links, "Relationships",
                         '<' + rootPrefix(text, links) + "Relationship" + xmlAttribute("Id", id) +
                             xmlAttribute("Type", linkVocabulary(m_IsStrict) + '/' + std::string(type)) +
                             xmlAttribute("Target", '/' + part) + "/>"));
    m_Links.push_back({id, std::string(type), part});
    return id;
}

void WorkbookPart::declare(const std::string& part, std::string_view contentType) {
    const std::string types(contentTypesPart);
    const std::string text = textOf(types);
    // By the part's own name: the default for .xml is another type or none.
    change(types, withLastChild(
                      text, types, "Types",
                      '<' + rootPrefix(text, types) + "Override" + xmlAttribute("PartName", '/' + part) +
                          xmlAttribute("ContentType", std::string(contentTypes).append(contentType)) + "/>"));
}

void WorkbookPart::undeclare(const std::string& part) {
    const std::string types(contentTypesPart);
    change(types, withoutElements(textOf(types), types, "PartName", '/' + part));
    const std::string links = relationshipsPart(m_Part);
    const auto link = std::ranges::find(m_Links, part, &XlsxRelationship::target);
    change(links, withoutElements(textOf(links), links, "Id", link->id));
}

std::string WorkbookPart::freeName(const std::string& name) const {
    const std::string wanted = sanitisedSheetName(name);
    std::string free = wanted;
    for (int i = 2; isTaken(free); ++i) {
        free = wanted + " (" + std::to_string(i) + ')';
    }
    return free;
}

std::string WorkbookPart::freePart() const {
    std::size_t number = m_Sheets.size() + 1;
    const auto partOf = [&](std::size_t candidate) {
        return std::string(folderOfPart(m_Part)) + "worksheets/sheet" + std::to_string(candidate) + ".xml";
    };
    while (m_Package.has(partOf(number))) {
        number += 1;
    }
    return partOf(number);
}

std::string WorkbookPart::freeSheetId() const {
    std::size_t free = 1;
    for (const ListedSheet& sheet : m_Sheets) {
        std::size_t own = 0;
        std::from_chars(sheet.sheetId.data(), sheet.sheetId.data() + sheet.sheetId.size(), own);
        free = std::max(free, own + 1);
    }
    return std::to_string(free);
}

std::string WorkbookPart::addSheet(const std::string& name, std::string content) {
    const ListedSheet sheet{freeName(name), freeSheetId(), freePart(), true};
    m_Package.put(sheet.part, std::move(content));
    const std::string id = link(sheet.part, "worksheet");
    declare(sheet.part, "worksheet+xml");
    const std::string text = textOf(m_Part);
    // The prefix r is declared here, since the root may bind it to something else or not at all.
    change(m_Part, withLastChild(text, m_Part, "sheets",
                                 '<' + rootPrefix(text, m_Part) + "sheet" + xmlAttribute("name", sheet.name) +
                                     xmlAttribute("sheetId", sheet.sheetId) +
                                     xmlAttribute("xmlns:r", linkVocabulary(m_IsStrict)) +
                                     xmlAttribute("r:id", id) + "/>"));
    m_Sheets.push_back(sheet);
    return sheet.name;
}

std::string WorkbookPart::stylePart() {
    const auto styles = std::ranges::find(m_Links, "styles", &XlsxRelationship::kind);
    if (styles != m_Links.end() && m_Package.has(styles->target)) {
        return styles->target;
    }
    std::string part = std::string(folderOfPart(m_Part)) + "styles.xml";
    link(part, "styles");
    declare(part, "styles+xml");
    return part;
}

void WorkbookPart::forgetFormulas(const std::string& sheetId, const std::vector<std::string>& cells) {
    // The order of calculation lists each cell with a formula; a cell listed without one counts as damage. It
    // may be missing as a whole, but not be empty.
    const auto chain = std::ranges::find(m_Links, "calcChain", &XlsxRelationship::kind);
    if (cells.empty() || chain == m_Links.end() || !m_Package.has(chain->target)) {
        return;
    }
    const std::set<std::string_view> gone(cells.begin(), cells.end());
    std::vector<Edit> edits;
    std::string sheet;
    std::string stated;  // the sheet that the last entry kept is known to belong to
    std::size_t kept = 0;
    XmlVisitor visitor;
    visitor.begin = [&](const XmlTag& tag, int depth) {
        if (depth != 2) {
            return;
        }
        // An entry that names no sheet belongs to that of the entry before, which may be one that goes.
        sheet = tag.attribute("i").value_or(sheet);
        if (sheet == sheetId && gone.contains(tag.attribute("r").value_or(""))) {
            edits.push_back({tag.begin(), tag.end(), ""});
            return;
        }
        kept += 1;
        if (sheet != stated && !tag.attribute("i")) {
            edits.push_back(withAttribute(tag, "i", sheet));
        }
        stated = sheet;
    };
    const std::string text = m_Package.read(chain->target);
    walkXml(text, chain->target, visitor);
    if (kept > 0) {
        m_Package.put(chain->target, edited(text, std::move(edits)));
        return;
    }
    m_Package.remove(chain->target);
    undeclare(chain->target);
}

}  // namespace TBVNonPara::workbook
