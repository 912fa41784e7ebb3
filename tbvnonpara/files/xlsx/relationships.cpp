#include "tbvnonpara/files/xlsx/relationships.hpp"

#include <algorithm>
#include <charconv>

#include "tbvnonpara/files/xml_reader.hpp"

namespace TBVNonPara::workbook {

namespace {

std::string lastWord(std::string_view address) {
    return std::string(address.substr(address.rfind('/') + 1));
}

/// "sheet%201.xml" means "sheet 1.xml".
std::string withoutPercents(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned byte = 0;
        const char* const digits = text.data() + i + 1;
        if (text[i] == '%' && i + 2 < text.size() &&
            std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
            result += static_cast<char>(byte);
            i += 2;
        } else {
            result += text[i];
        }
    }
    return result;
}

std::string partNamed(const Parts& parts, const std::string& name) {
    if (parts.has(name)) {
        return name;
    }
    const std::string plain = withoutPercents(name);
    return parts.has(plain) ? plain : name;
}

std::string relationshipsOf(const std::string& part) {
    const std::size_t folder = part.rfind('/') + 1;
    return part.substr(0, folder) + "_rels/" + part.substr(folder) + ".rels";
}

class RelationshipReader final : public XmlHandler {
 public:
    RelationshipReader(const Parts& parts, const std::string& from) : m_Parts(parts), m_From(from) {}

    bool start(const XmlName& name, const XmlAttributes& attributes) override {
        const bool external = attributes.find("TargetMode") == "External";
        const auto target = attributes.find("Target");
        if (name.local == "Relationship" && target && !external) {
            found.push_back({std::string(attributes.find("Id").value_or("")),
                             lastWord(attributes.find("Type").value_or("")),
                             partNamed(m_Parts, resolvedTarget(m_From, *target))});
        }
        return name == XmlName{Vocabulary::PackageRelationships, "Relationships"};
    }
    void end() override {}
    void text(std::string_view /*piece*/) override {}

    std::vector<XlsxRelationship> found;

 private:
    const Parts& m_Parts;
    const std::string& m_From;
};

}  // namespace

std::string resolvedTarget(std::string_view from, std::string_view target) {
    std::string path(target.substr(0, target.find('#')));
    std::ranges::replace(path, '\\', '/');
    if (!path.starts_with('/')) {
        path.insert(0, from.substr(0, from.rfind('/') + 1));
    }
    std::vector<std::string_view> folders;
    std::string_view rest = path;
    while (!rest.empty()) {
        const std::string_view folder = rest.substr(0, rest.find('/'));
        rest.remove_prefix(std::min(folder.size() + 1, rest.size()));
        if (folder == ".." && !folders.empty()) {
            folders.pop_back();
        } else if (!folder.empty() && folder != "." && folder != "..") {
            folders.push_back(folder);
        }
    }
    std::string resolved;
    for (const std::string_view folder : folders) {
        resolved.append(resolved.empty() ? "" : "/").append(folder);
    }
    return resolved;
}

std::vector<XlsxRelationship> readRelationships(const Parts& parts, const std::string& part) {
    RelationshipReader reader(parts, part);
    const std::string relationships = relationshipsOf(part);
    if (parts.has(relationships)) {
        readXml(parts, relationships, reader);
    }
    return std::move(reader.found);
}

}  // namespace TBVNonPara::workbook
