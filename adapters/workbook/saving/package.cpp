#include "adapters/workbook/saving/package.hpp"

#include <algorithm>
#include <limits>
#include <utility>
#include <zip.h>

#include "adapters/workbook/host_error.hpp"
#include "adapters/workbook/saving/xml_walk.hpp"

namespace TBVNonPara::workbook {

namespace {

/// A part as large as this is not read: nobody's sheet, and a few bytes may claim to be more.
constexpr zip_uint64_t largestPart = std::numeric_limits<std::int32_t>::max();

struct CloseEntry {
    void operator()(zip_file_t* entry) const { zip_fclose(entry); }
};

std::string resolved(std::string_view base, std::string_view target) {
    if (target.starts_with('/')) {
        return std::string(target.substr(1));
    }
    std::string folder(base);
    while (target.starts_with("../") || target.starts_with("./")) {
        if (target.starts_with("../")) {
            folder.erase(folder.size() < 2 ? 0 : folder.find_last_of('/', folder.size() - 2) + 1);
        }
        target.remove_prefix(target.find('/') + 1);
    }
    return folder.append(target);
}

std::string_view lastWord(std::string_view type) {
    return type.substr(type.find_last_of('/') + 1);
}

}  // namespace

Package::Package(std::string bytes, std::string fileName)
    : m_Bytes(std::move(bytes)), m_FileName(std::move(fileName)) {
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* const source = m_Bytes.open();
    if (source != nullptr) {
        m_Zip = zip_open_from_source(source, ZIP_CHECKCONS, &error);
    }
    if (m_Zip == nullptr) {
        const std::string why = zip_error_strerror(&error);
        zip_error_fini(&error);
        zip_source_free(source);
        refuseDamaged(why);
    }
}

Package::~Package() {
    if (m_Zip != nullptr) {
        zip_discard(m_Zip);
    }
}

bool Package::has(std::string_view part) const {
    return zip_name_locate(m_Zip, std::string(part).c_str(), ZIP_FL_NOCASE) >= 0;
}

std::vector<std::string> Package::parts() const {
    std::vector<std::string> names;
    const zip_int64_t count = zip_get_num_entries(m_Zip, 0);
    for (zip_int64_t i = 0; i < count; ++i) {
        const char* const name = zip_get_name(m_Zip, static_cast<zip_uint64_t>(i), 0);
        if (name != nullptr) {
            names.emplace_back(name);
        }
    }
    return names;
}

std::string Package::read(std::string_view part) const {
    const std::string name(part);
    zip_stat_t facts;
    if (zip_stat(m_Zip, name.c_str(), ZIP_FL_NOCASE | ZIP_FL_UNCHANGED, &facts) != 0 ||
        facts.size > largestPart) {
        refuseDamaged("its part \"" + name + "\" is missing or too large");
    }
    const std::unique_ptr<zip_file_t, CloseEntry> entry(
        zip_fopen_index(m_Zip, facts.index, ZIP_FL_UNCHANGED));
    std::string content;
    // A size that is not true shows below; memory is taken as the content comes.
    constexpr std::size_t piece = std::size_t(1) << 22U;
    while (entry != nullptr && content.size() < facts.size) {
        const std::size_t before = content.size();
        content.resize(std::min<std::size_t>(before + piece, facts.size));
        const zip_int64_t count = zip_fread(entry.get(), content.data() + before, content.size() - before);
        content.resize(before + static_cast<std::size_t>(std::max<zip_int64_t>(count, 0)));
        if (count <= 0) {
            break;
        }
    }
    char beyond = 0;
    if (entry == nullptr || content.size() != facts.size || zip_fread(entry.get(), &beyond, 1) != 0) {
        refuseDamaged("its part \"" + name + "\" cannot be read");
    }
    return content;
}

void Package::put(std::string_view part, std::string content) {
    m_Contents.push_back(std::make_unique<std::string>(std::move(content)));
    const std::string name(part);
    zip_source_t* const source =
        zip_source_buffer(m_Zip, m_Contents.back()->data(), m_Contents.back()->size(), 0);
    const zip_int64_t old = zip_name_locate(m_Zip, name.c_str(), ZIP_FL_NOCASE);
    const bool done = source != nullptr &&
                      (old >= 0 ? zip_file_replace(m_Zip, static_cast<zip_uint64_t>(old), source, 0) == 0
                                : zip_file_add(m_Zip, name.c_str(), source, ZIP_FL_ENC_UTF_8) >= 0);
    if (!done) {
        zip_source_free(source);
        refuseDamaged(zip_strerror(m_Zip));
    }
}

void Package::remove(std::string_view part) {
    const zip_int64_t old = zip_name_locate(m_Zip, std::string(part).c_str(), ZIP_FL_NOCASE);
    if (old < 0 || zip_delete(m_Zip, static_cast<zip_uint64_t>(old)) != 0) {
        refuseDamaged(zip_strerror(m_Zip));
    }
}

std::string Package::finish() {
    if (zip_close(m_Zip) != 0) {
        refuseDamaged(zip_strerror(m_Zip));
    }
    m_Zip = nullptr;
    return m_Bytes.take();
}

void Package::refuseDamaged(std::string_view why) const {
    refuse("The workbook \"" + m_FileName + "\" cannot be copied: " + std::string(why) + '.');
}

std::string_view folderOfPart(std::string_view part) noexcept {
    const std::size_t slash = part.find_last_of('/');
    return part.substr(0, slash == std::string_view::npos ? 0 : slash + 1);
}

std::string relationshipsPart(std::string_view part) {
    const std::string_view folder = folderOfPart(part);
    return std::string(folder) + "_rels/" + std::string(part.substr(folder.size())) + ".rels";
}

std::vector<Relationship> relationshipsOf(const Package& package, std::string_view part) {
    const std::string name = relationshipsPart(part);
    std::vector<Relationship> links;
    if (!package.has(name)) {
        return links;
    }
    const std::string text = package.read(name);
    XmlVisitor visitor;
    visitor.begin = [&](const XmlTag& tag, int depth) {
        if (depth != 2 || tag.name() != "Relationship") {
            return;
        }
        const bool outside = tag.attribute("TargetMode").value_or("Internal") == "External";
        links.push_back({std::string(tag.attribute("Id").value_or("")),
                         std::string(lastWord(tag.attribute("Type").value_or(""))),
                         outside ? "" : resolved(folderOfPart(part), tag.attribute("Target").value_or(""))});
    };
    walkXml(text, name, visitor);
    return links;
}

}  // namespace TBVNonPara::workbook
