#include "tbvnonpara/files/xlsx/cell_sizes.hpp"

#include <cmath>
#include <optional>
#include <string_view>

#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/files/xml_reader.hpp"

namespace TBVNonPara::workbook {

namespace {

constexpr EnglishMetricUnits pixel = 9'525;
constexpr EnglishMetricUnits point = 12'700;

/// A width counts the digits of the usual font, of 7 pixels each, with 5 pixels around them.
EnglishMetricUnits widthOf(double digits) {
    constexpr double digit = 7;
    return std::trunc((256 * digits + std::trunc(128 / digit)) / 256 * digit) * pixel;
}

class SizeReader final : public XmlHandler {
 public:
    SheetSizes sizes{CellSizes(20 * pixel), CellSizes(64 * pixel)};

    bool start(const XmlName& name, const XmlAttributes& attributes) override {
        if (name.local == "sheetFormatPr") {
            takeDefaults(attributes);
        } else if (name.local == "col") {
            takeColumns(attributes);
        } else if (name.local == "row") {
            takeRow(attributes);
        }
        return name.local == "worksheet" || name.local == "cols" || name.local == "sheetData";
    }
    void end() override {}
    void text(std::string_view /*piece*/) override {}

 private:
    static std::optional<double> number(const XmlAttributes& attributes, std::string_view name) {
        const auto text = attributes.find(name);
        return text ? readAsNumber(*text) : std::nullopt;
    }

    static bool isHidden(const XmlAttributes& attributes, std::string_view name) {
        const auto text = attributes.find(name);
        return text == "1" || text == "true";
    }

    void takeDefaults(const XmlAttributes& attributes) {
        if (const auto width = number(attributes, "defaultColWidth")) {
            sizes.columns.setOtherwise(widthOf(*width));
        }
        const auto height = number(attributes, "defaultRowHeight");
        if (isHidden(attributes, "zeroHeight")) {
            sizes.rows.setOtherwise(0);
        } else if (height) {
            sizes.rows.setOtherwise(*height * point);
        }
    }

    void takeColumns(const XmlAttributes& attributes) {
        const auto first = number(attributes, "min");
        const auto last = number(attributes, "max");
        const auto width = number(attributes, "width");
        const bool hidden = isHidden(attributes, "hidden");
        if (first && last && (width || hidden)) {
            sizes.columns.set(static_cast<Index>(*first), static_cast<Index>(*last),
                              hidden ? 0 : widthOf(*width));
        }
    }

    void takeRow(const XmlAttributes& attributes) {
        const auto written = number(attributes, "r");
        m_Row = written ? static_cast<Index>(*written) : m_Row + 1;
        const auto height = number(attributes, "ht");
        if (isHidden(attributes, "hidden")) {
            sizes.rows.set(m_Row, m_Row, 0);
        } else if (height) {
            sizes.rows.set(m_Row, m_Row, *height * point);
        }
    }

    Index m_Row = 0;
};

}  // namespace

Index CellSizes::at(Index first, EnglishMetricUnits length, Index most) const {
    Index position = first;
    for (; position < most; ++position) {
        length -= of(position);
        if (length <= 0) {
            break;
        }
    }
    return position;
}

EnglishMetricUnits CellSizes::of(Index position) const {
    const auto run = m_Sizes.lower_bound(position);
    return run != m_Sizes.end() && run->second.first <= position ? run->second.size : m_Otherwise;
}

SheetSizes readXlsxSizes(const Parts& parts, const std::string& sheet) {
    SizeReader reader;
    readXml(parts, sheet, reader);
    return reader.sizes;
}

}  // namespace TBVNonPara::workbook
