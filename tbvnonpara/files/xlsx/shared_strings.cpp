#include "tbvnonpara/files/xlsx/shared_strings.hpp"

#include "tbvnonpara/files/xlsx/text.hpp"
#include "tbvnonpara/files/xml_reader.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

/// The texts of all cells of a workbook together; each takes some sixty bytes beside its characters.
constexpr std::size_t mostTextMemory = std::size_t(1) << 30U;
constexpr std::size_t memoryOfText = 64;

class SharedStringReader final : public XmlHandler {
 public:
    bool start(const XmlName& name, const XmlAttributes& /*attributes*/) override {
        if (!m_Inside) {
            m_Inside = name == XmlName{Vocabulary::Spreadsheet, "sst"};
            if (!m_Inside) {
                refuse("these are no shared texts, but <" + std::string(name.local) + ">");
            }
            return true;
        }
        if (name.vocabulary != Vocabulary::Spreadsheet) {
            return false;
        }
        if (m_InItem) {
            return m_Text.start(name.local);
        }
        m_InItem = name.local == "si";
        m_Text.begin();
        return m_InItem;
    }

    void end() override {
        if (!m_InItem || m_Text.end()) {
            return;
        }
        m_InItem = false;
        texts.emplace_back(m_Text.text());
        m_Memory += memoryOfText + texts.back().string().size();
        if (m_Memory > mostTextMemory) {
            refuse("more than a gigabyte of shared texts");
        }
    }

    void text(std::string_view piece) override { m_Text.append(piece); }

    std::vector<Text> texts;

 private:
    bool m_Inside = false;
    bool m_InItem = false;
    RichText m_Text;
    std::size_t m_Memory = 0;
};

}  // namespace

std::vector<Text> readSharedStrings(const Parts& parts, const std::string& part) {
    SharedStringReader reader;
    readXml(parts, part, reader);
    return std::move(reader.texts);
}

}  // namespace TBVNonPara::workbook
