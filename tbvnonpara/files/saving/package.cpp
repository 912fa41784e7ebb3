#include "tbvnonpara/files/saving/package.hpp"

#include <algorithm>
#include <utility>
#include <zip.h>

#include "tbvnonpara/core/error.hpp"
#include "tbvnonpara/files/part_names.hpp"
#include "tbvnonpara/files/saving/archive_check.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

Package::Package(std::string bytes, std::string fileName)
    : m_Bytes(std::move(bytes)), m_FileName(std::move(fileName)) {
    open();
    try {
        m_Kept = std::make_unique<Container>(m_Bytes.bytes());
    } catch (...) {
        zip_discard(m_Zip);
        refuseDamaged(currentError().description());
    }
}

Package::~Package() {
    if (m_Zip != nullptr) {
        zip_discard(m_Zip);
    }
}

void Package::open() {
    if (const auto problem = problemOfArchive(m_Bytes.bytes())) {
        refuseDamaged(*problem);
    }
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* const source = m_Bytes.open();
    if (source != nullptr) {
        m_Zip = zip_open_from_source(source, 0, &error);
    }
    if (m_Zip == nullptr) {
        const std::string why = zip_error_strerror(&error);
        zip_error_fini(&error);
        zip_source_free(source);
        refuseDamaged(why);
    }
}

std::string Package::read(const std::string& part) const try {
    // Pieces grow with what there is: most parts are small, and every byte of a piece is cleared before it is
    // read.
    constexpr std::size_t smallest = std::size_t(1) << 14U;
    constexpr std::size_t largest = std::size_t(1) << 20U;
    const std::unique_ptr<PartStream> stream = m_Kept->open(part);
    std::string content;
    std::size_t count = 1;
    while (count != 0) {
        const std::size_t before = content.size();
        const std::size_t size = std::clamp(before, smallest, largest);
        content.resize(before + size);
        count = stream->read(content.data() + before, size);
        content.resize(before + count);
    }
    return content;
} catch (const Error& error) {
    refuseDamaged(error.description());
}

std::vector<XlsxRelationship> Package::linksOf(const std::string& part) const try {
    return readRelationships(*m_Kept, part);
} catch (const Error& error) {
    refuseDamaged(error.description());
}

void Package::put(const std::string& part, std::string content) {
    m_Contents.push_back(std::make_unique<std::string>(std::move(content)));
    const std::string& kept = *m_Contents.back();
    put(part, zip_source_buffer(m_Zip, kept.data(), kept.size(), 0));
    packQuickly(part, kept.size());
}

void Package::put(const std::string& part, std::unique_ptr<PartMaker> content) {
    const std::size_t size = content->size();
    m_Made.push_back(std::make_unique<PartSource>(std::move(content)));
    put(part, m_Made.back()->open());
    packQuickly(part, size);
}

void Package::packQuickly(const std::string& part, std::size_t size) {
    constexpr std::size_t large = std::size_t(1) << 20U;
    if (size < large) {
        return;
    }
    // The best packing, which is the library's own choice, saves a sixth and takes ten times as long. A level
    // is taken only together with another method than the part had before; the default one is to deflate as
    // well.
    const auto index = findPart(m_Zip, part);
    if (!index || zip_set_file_compression(m_Zip, *index, ZIP_CM_DEFAULT, 1) != 0) {
        refuseDamaged(zip_strerror(m_Zip));
    }
}

void Package::put(const std::string& part, zip_source* source) {
    const auto old = findPart(m_Zip, part);
    const bool done =
        source != nullptr && (old ? zip_file_replace(m_Zip, *old, source, 0) == 0
                                  : zip_file_add(m_Zip, part.c_str(), source, ZIP_FL_ENC_UTF_8) >= 0);
    if (!done) {
        zip_source_free(source);
        refuseDamaged(zip_strerror(m_Zip));
    }
}

void Package::remove(const std::string& part) {
    const auto old = findPart(m_Zip, part);
    if (!old || zip_delete(m_Zip, *old) != 0) {
        refuseDamaged(zip_strerror(m_Zip));
    }
}

std::string Package::finish() {
    if (zip_close(m_Zip) != 0) {
        for (const std::unique_ptr<PartSource>& made : m_Made) {
            made->rethrow();
        }
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

}  // namespace TBVNonPara::workbook
