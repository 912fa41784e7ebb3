#include "tbvnonpara/files/ods/reader.hpp"

#include "tbvnonpara/files/ods/content.hpp"
#include "tbvnonpara/files/xml_reader.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

constexpr std::string_view mimetype = "application/vnd.oasis.opendocument.spreadsheet";
constexpr std::size_t enoughOfManifest = std::size_t(1) << 20U;

/// Finds the name of the sheet on top among the settings.
class SettingsReader final : public XmlHandler {
 public:
    bool start(const XmlName& name, const XmlAttributes& attributes) override {
        m_Inside = name == XmlName{Vocabulary::Config, "config-item"} &&
                   attributes.find(Vocabulary::Config, "name") == "ActiveTable";
        return name.vocabulary == Vocabulary::Config || name.vocabulary == Vocabulary::Office;
    }
    void end() override { m_Inside = false; }
    void text(std::string_view piece) override {
        if (m_Inside) {
            appendToText(activeSheet, piece);
        }
    }

    std::string activeSheet;

 private:
    bool m_Inside = false;
};

}  // namespace

bool isOds(const Parts& parts) {
    const std::string written = beginningOf(parts, "mimetype", mimetype.size());
    return parts.has("content.xml") && (written.empty() || written == mimetype);
}

FileContents readOds(const Parts& parts) {
    // Old manifests have a document type, which the XML reader refuses.
    const std::string manifest = beginningOf(parts, "META-INF/manifest.xml", enoughOfManifest);
    if (manifest.find("encryption-data") != std::string::npos) {
        refuse("it is encrypted; save the workbook without a password");
    }
    FileContents contents = readOdsContent(parts);
    if (parts.has("settings.xml")) {
        SettingsReader settings;
        readXml(parts, "settings.xml", settings);
        const auto active = std::ranges::find(contents.sheets, settings.activeSheet, &FileSheet::name);
        contents.active = static_cast<std::size_t>(active - contents.sheets.begin());
    }
    showVisibleSheet(contents);
    return contents;
}

}  // namespace TBVNonPara::workbook
