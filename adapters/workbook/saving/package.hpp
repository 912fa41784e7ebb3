#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/workbook/saving/memory_source.hpp"

struct zip;

namespace TBVNonPara::workbook {

/// The parts of a workbook file, of which some are replaced or added and the others kept as they are, byte
/// for byte and in their order. Part names have no slash in front; upper and lower case are the same. Errors
/// are the host's and name the file.
class Package {
 public:
    Package(std::string bytes, std::string fileName);
    ~Package();
    Package(const Package&) = delete;
    Package& operator=(const Package&) = delete;

    [[nodiscard]] const std::string& fileName() const noexcept { return m_FileName; }
    [[nodiscard]] bool has(std::string_view part) const;
    [[nodiscard]] std::vector<std::string> parts() const;
    /// The content of a part as it was read, whatever has been put there since.
    [[nodiscard]] std::string read(std::string_view part) const;

    /// Replaces a part or adds one.
    void put(std::string_view part, std::string content);
    void remove(std::string_view part);

    /// The bytes of the file with all changes. Nothing else can be asked afterwards.
    [[nodiscard]] std::string finish();

 private:
    [[noreturn]] void refuseDamaged(std::string_view why) const;

    MemorySource m_Bytes;
    std::string m_FileName;
    std::vector<std::unique_ptr<std::string>> m_Contents;
    zip* m_Zip = nullptr;
};

/// A link from one part to another.
struct Relationship {
    std::string id;
    std::string type;  ///< the last word: "worksheet", "styles"
    std::string part;  ///< the name of the part; empty for one outside the file
};

/// The links of a part, "" for those of the package itself.
[[nodiscard]] std::vector<Relationship> relationshipsOf(const Package& package, std::string_view part);

/// The part that holds the links of a part.
[[nodiscard]] std::string relationshipsPart(std::string_view part);

/// The folder of a part: "xl/" for "xl/workbook.xml".
[[nodiscard]] std::string_view folderOfPart(std::string_view part) noexcept;

}  // namespace TBVNonPara::workbook
