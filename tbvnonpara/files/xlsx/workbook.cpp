#include "tbvnonpara/files/xlsx/workbook.hpp"

#include <algorithm>
#include <utility>

#include "tbvnonpara/files/file_values.hpp"
#include "tbvnonpara/files/xlsx/relationships.hpp"
#include "tbvnonpara/files/xlsx/text.hpp"
#include "tbvnonpara/files/xml_reader.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

constexpr std::size_t mostXlsxSheets = 4096;

class WorkbookReader final : public XmlHandler {
 public:
    WorkbookReader(const Parts& parts, const std::vector<XlsxRelationship>& relationships)
        : m_Parts(parts), m_Relationships(relationships) {}

    bool start(const XmlName& name, const XmlAttributes& attributes) override {
        if (!m_Inside) {
            m_Inside = name == XmlName{Vocabulary::Spreadsheet, "workbook"};
            if (!m_Inside) {
                refuse("this is no workbook, but <" + std::string(name.local) + ">");
            }
            return true;
        }
        if (name.vocabulary != Vocabulary::Spreadsheet) {
            return false;
        }
        if (name.local == "workbookPr" && truthInFile(attributes.find("date1904").value_or("0")) == true) {
            workbook.dates = dates1904;
        } else if (name.local == "workbookView" && !m_View) {
            m_View = true;
            workbook.active = countInFile(attributes.find("activeTab").value_or("0")).value_or(0);
        } else if (name.local == "sheet") {
            addSheet(attributes);
        }
        return name.local == "sheets" || name.local == "bookViews";
    }
    void end() override {}
    void text(std::string_view /*piece*/) override {}

    XlsxWorkbook workbook;

 private:
    void addSheet(const XmlAttributes& attributes) {
        if (workbook.sheets.size() == mostXlsxSheets) {
            refuse("more than " + std::to_string(mostXlsxSheets) + " sheets");
        }
        XlsxSheet sheet;
        sheet.name = unescapedXlsx(std::string(attributes.find("name").value_or("")));
        const auto state = attributes.find("state");
        sheet.hidden = state == "hidden" || state == "veryHidden";
        const auto id = attributes.find(Vocabulary::Relationships, "id");
        const auto found = std::ranges::find(m_Relationships, id.value_or(""), &XlsxRelationship::id);
        // A sheet that points at nothing holds nothing; some programs leave one behind.
        sheet.hasCells =
            id && found != m_Relationships.end() && found->kind == "worksheet" && m_Parts.has(found->target);
        if (sheet.hasCells) {
            sheet.part = found->target;
        }
        workbook.sheets.push_back(std::move(sheet));
    }

    const Parts& m_Parts;
    const std::vector<XlsxRelationship>& m_Relationships;
    bool m_Inside = false;
    bool m_View = false;
};

std::optional<std::string> targetOf(const std::vector<XlsxRelationship>& relationships,
                                    std::string_view kind) {
    const auto found = std::ranges::find(relationships, kind, &XlsxRelationship::kind);
    return found == relationships.end() ? std::nullopt : std::optional(found->target);
}

}  // namespace

XlsxWorkbook readXlsxWorkbook(const Parts& parts) {
    const std::string part =
        targetOf(readRelationships(parts, ""), "officeDocument").value_or("xl/workbook.xml");
    const std::vector<XlsxRelationship> relationships = readRelationships(parts, part);
    WorkbookReader reader(parts, relationships);
    readXml(parts, part, reader);
    reader.workbook.sharedStrings = targetOf(relationships, "sharedStrings");
    return std::move(reader.workbook);
}

}  // namespace TBVNonPara::workbook
