#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace TBVNonPara::workbook {

/// The namespaces that mean something in a workbook file. The strict and the transitional form of one are the
/// same.
enum class Vocabulary : std::uint8_t {
    None,                  ///< no namespace, as most attributes
    Unknown,               ///< any other
    Spreadsheet,           ///< .xlsx: workbook, sheets and strings
    Relationships,         ///< .xlsx: the attribute that points at a relationship
    PackageRelationships,  ///< .xlsx: the relationships themselves
    Office,                ///< .ods, from here on
    Table,
    Text,
    Style,
    Config,
    Manifest,
    CalcExtension,
    GnumericExtension,
};

struct XmlName {
    Vocabulary vocabulary = Vocabulary::None;
    std::string_view local;

    friend bool operator==(const XmlName&, const XmlName&) = default;
};

/// The namespaces that are declared where the reader stands. The "xml" and "xmlns" prefixes are unknown ones.
class XmlNames {
 public:
    /// Takes the declarations among the attributes of an element at a depth.
    void enter(std::size_t depth, const char* const* attributes);
    /// Forgets those of the element that ends.
    void leave(std::size_t depth) noexcept;

    [[nodiscard]] XmlName element(const char* qualified) const;
    /// An attribute without a prefix belongs to no namespace.
    [[nodiscard]] XmlName attribute(std::string_view qualified) const;

 private:
    struct Declaration {
        std::size_t depth;
        std::string prefix;
        Vocabulary vocabulary;
    };

    struct Found {
        std::string prefix;
        Vocabulary vocabulary;
    };

    void declare(std::size_t depth, std::string_view prefix, std::string_view address);
    [[nodiscard]] Vocabulary find(std::string_view prefix) const;
    [[nodiscard]] const Declaration* declaration(std::string_view prefix) const noexcept;

    std::vector<Declaration> m_Declarations;
    /// The prefixes that were looked up last, as long as the declarations stay.
    mutable std::vector<Found> m_Found;
    Vocabulary m_Default = Vocabulary::None;
};

}  // namespace TBVNonPara::workbook
