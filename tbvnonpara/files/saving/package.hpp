#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/files/container.hpp"
#include "tbvnonpara/files/saving/memory_source.hpp"
#include "tbvnonpara/files/saving/part_source.hpp"
#include "tbvnonpara/files/xlsx/relationships.hpp"

struct zip;
struct zip_source;

namespace TBVNonPara::workbook {

/// The parts of a workbook file, of which some are replaced or added and the others kept as they are, byte
/// for byte and in their order. What is asked is answered from the file as it was read, whatever has been put
/// there since. Part names have no slash in front; upper and lower case are the same. Errors are the host's
/// and name the file.
class Package {
 public:
    Package(std::string bytes, std::string fileName);
    ~Package();
    Package(const Package&) = delete;
    Package& operator=(const Package&) = delete;

    [[nodiscard]] const std::string& fileName() const noexcept { return m_FileName; }
    [[nodiscard]] bool has(const std::string& part) const { return m_Kept->has(part); }
    [[nodiscard]] bool hasFolder(std::string_view folder) const { return m_Kept->hasFolder(folder); }
    [[nodiscard]] std::string read(const std::string& part) const;
    /// What a part points at inside the file; "" is the package itself.
    [[nodiscard]] std::vector<XlsxRelationship> linksOf(const std::string& part) const;

    /// Replaces a part or adds one.
    void put(const std::string& part, std::string content);
    /// The content is made while the file is finished.
    void put(const std::string& part, std::unique_ptr<PartMaker> content);
    void remove(const std::string& part);

    /// The bytes of the file with all changes. Nothing else can be asked afterwards.
    [[nodiscard]] std::string finish();

 private:
    void open();
    void put(const std::string& part, zip_source* source);
    void packQuickly(const std::string& part, std::size_t size);
    [[noreturn]] void refuseDamaged(std::string_view why) const;

    MemorySource m_Bytes;
    std::string m_FileName;
    std::unique_ptr<Container> m_Kept;
    std::vector<std::unique_ptr<std::string>> m_Contents;
    std::vector<std::unique_ptr<PartSource>> m_Made;
    zip* m_Zip = nullptr;
};

/// The part that holds the links of a part.
[[nodiscard]] std::string relationshipsPart(std::string_view part);

/// The folder of a part: "xl/" for "xl/workbook.xml".
[[nodiscard]] std::string_view folderOfPart(std::string_view part) noexcept;

}  // namespace TBVNonPara::workbook
