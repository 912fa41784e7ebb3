#include "tbvnonpara/files/ods/reader.hpp"

#include <algorithm>

#include "tbvnonpara/files/file_values.hpp"
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

/// A document in one piece: its only part, which has no name.
class FlatDocument final : public Parts {
 public:
    explicit FlatDocument(std::string_view bytes) : m_Bytes(bytes) {}

    [[nodiscard]] bool has(const std::string& part) const override { return part.empty(); }
    [[nodiscard]] std::unique_ptr<PartStream> open(const std::string& /*part*/) const override {
        return std::make_unique<Stream>(m_Bytes);
    }

 private:
    class Stream final : public PartStream {
     public:
        explicit Stream(std::string_view bytes) : m_Rest(bytes) {}
        std::size_t read(char* buffer, std::size_t size) override {
            const std::size_t count = m_Rest.copy(buffer, size);
            m_Rest.remove_prefix(count);
            return count;
        }

     private:
        std::string_view m_Rest;
    };

    std::string_view m_Bytes;
};

FileContents withSheetOnTop(FileContents contents, const Parts& parts, const std::string& settingsPart) {
    if (parts.has(settingsPart)) {
        SettingsReader settings;
        readXml(parts, settingsPart, settings);
        const auto active = std::ranges::find(contents.sheets, settings.activeSheet, &FileSheet::name);
        contents.active = static_cast<std::size_t>(active - contents.sheets.begin());
    }
    showVisibleSheet(contents);
    return contents;
}

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
    return withSheetOnTop(readOdsContent(parts, "content.xml"), parts, "settings.xml");
}

bool isFlatOds(std::string_view beginning) {
    return withoutXmlBlanks(beginning.substr(beginning.starts_with("\xEF\xBB\xBF") ? 3 : 0))
               .starts_with('<') &&
           beginning.find("urn:oasis:names:tc:opendocument:xmlns:office:1.0") != std::string_view::npos;
}

FileContents readFlatOds(std::string_view bytes) {
    const FlatDocument document(bytes);
    return withSheetOnTop(readOdsContent(document, ""), document, "");
}

}  // namespace TBVNonPara::workbook
