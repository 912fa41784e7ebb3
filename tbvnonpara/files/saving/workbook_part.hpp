#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/files/saving/package.hpp"

namespace TBVNonPara::workbook {

/// A sheet as the workbook's own part lists it. A chart sheet is one too.
struct ListedSheet {
    std::string name;
    std::string sheetId;
    std::string part;
    bool isWorksheet = false;
};

/// The name of the vocabulary of sheets and styles.
[[nodiscard]] std::string_view spreadsheetVocabulary(bool strict) noexcept;

/// The parts that hold a workbook together.
class WorkbookPart {
 public:
    explicit WorkbookPart(Package& package);

    [[nodiscard]] const std::vector<ListedSheet>& sheets() const noexcept { return m_Sheets; }
    /// Upper and lower case are the same; raises the host's error for a name that no worksheet bears.
    [[nodiscard]] const ListedSheet& sheet(std::string_view name) const;

    /// Whether the file is in the strict form, in which vocabularies have other names.
    [[nodiscard]] bool isStrict() const noexcept { return m_IsStrict; }

    /// Adds a worksheet behind the others, with a number behind the name when it is taken. Returns the name.
    std::string addSheet(const std::string& name, std::string content);

    /// The part of the styles; one is added to a workbook without.
    [[nodiscard]] std::string stylePart();

    /// Takes formulas that are no longer there out of the order of calculation, if the workbook has one.
    void forgetFormulas(const std::string& sheetId, const std::vector<std::string>& cells);

 private:
    void read();
    [[nodiscard]] bool isTaken(std::string_view name) const;
    [[nodiscard]] std::string freeName(const std::string& name) const;
    [[nodiscard]] std::string freePart() const;
    [[nodiscard]] std::string freeSheetId() const;
    /// A link from the workbook to a part that is being added; returns its id.
    std::string link(const std::string& part, std::string_view type);
    void declare(const std::string& part, std::string_view contentType);
    void undeclare(const std::string& part);
    /// The part as changed so far.
    [[nodiscard]] std::string textOf(const std::string& part) const;
    void change(const std::string& part, std::string text);

    Package& m_Package;
    std::string m_Part;
    bool m_IsStrict = false;
    std::vector<XlsxRelationship> m_Links;
    std::vector<ListedSheet> m_Sheets;
    std::vector<std::pair<std::string, std::string>> m_Changed;
};

}  // namespace TBVNonPara::workbook
