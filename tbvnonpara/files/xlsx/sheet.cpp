#include "tbvnonpara/files/xlsx/sheet.hpp"

#include <utility>

#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/error.hpp"
#include "tbvnonpara/core/short_number.hpp"
#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/files/xlsx/plain_rows.hpp"
#include "tbvnonpara/files/xlsx/text.hpp"
#include "tbvnonpara/files/xml_reader.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

class SheetReader final : public XmlHandler {
 public:
    SheetReader(const XlsxTexts& texts, FileCells& cells) : m_Texts(texts), m_Cells(cells) {}

    bool start(const XmlName& name, const XmlAttributes& attributes) override {
        if (m_Place == Place::Document) {
            if (name != XmlName{Vocabulary::Spreadsheet, "worksheet"}) {
                refuse("this is no worksheet, but <" + std::string(name.local) + ">");
            }
            m_Place = Place::Worksheet;
            return true;
        }
        return name.vocabulary == Vocabulary::Spreadsheet && startInside(name.local, attributes);
    }

    void end() override {
        switch (m_Place) {
            case Place::Inline:
                endInline();
                break;
            case Place::Value:
                m_Place = Place::Cell;
                break;
            case Place::Cell:
                store();
                m_Place = Place::Row;
                break;
            case Place::Row:
                m_Place = Place::Data;
                break;
            default:
                m_Place = Place::Worksheet;
                break;
        }
    }

    void text(std::string_view piece) override {
        if (m_Place == Place::Value) {
            appendToText(m_Cell.value, piece);
        } else if (m_Place == Place::Inline) {
            m_Inline.append(piece);
        }
    }

    [[nodiscard]] std::string_view endOfPlain() const override {
        return m_Place == Place::Data ? "</row>" : std::string_view();
    }

    std::size_t takePlain(std::string_view text) override {
        const std::size_t size = m_Plain.take(text);
        if (size > 0) {
            beginRow(m_Plain.row().number);
            for (const PlainCell& cell : m_Plain.cells()) {
                take(cell);
            }
        }
        return size;
    }

 private:
    enum class Place { Document, Worksheet, Data, Row, Cell, Value, Inline };

    bool startInside(std::string_view name, const XmlAttributes& attributes) {
        switch (m_Place) {
            case Place::Worksheet:
                return enter(Place::Data, name == "sheetData");
            case Place::Data:
                return name == "row" && startRow(attributes);
            case Place::Row:
                return name == "c" && startCell(attributes);
            case Place::Cell:
                return startContent(name);
            case Place::Inline:
                return m_Inline.start(name);
            default:
                return false;
        }
    }

    bool enter(Place place, bool wanted) noexcept {
        if (wanted) {
            m_Place = place;
        }
        return wanted;
    }

    bool startRow(const XmlAttributes& attributes) {
        beginRow(attributes.find("r"));
        return enter(Place::Row, true);
    }

    void beginRow(const std::optional<std::string_view>& number) {
        m_At.row += 1;
        m_At.column = 0;
        if (number) {
            const auto row = countInFile(*number);
            if (!row) {
                refuse("row \"" + std::string(*number) + "\" is no row");
            }
            m_At.row = static_cast<Index>(std::min<std::size_t>(*row, sheetRows + 1));
        }
    }

    void take(const PlainCell& cell) {
        m_At.column += 1;
        m_At = cell.place.value_or(m_At);
        if (!cell.hasValue) {
            return;
        }
        const ShortNumber number = shortNumber(cell.value);
        if (!cell.isShared && number.size > 0 && number.size == cell.value.size()) {
            m_Cells.set(m_At.row, m_At.column, number.value);
            return;
        }
        m_Cell = XlsxCell{cell.isShared ? XlsxType::SharedText : XlsxType::Number,
                          false,
                          true,
                          std::string(cell.value),
                          {}};
        store();
    }

    bool startCell(const XmlAttributes& attributes) {
        m_At.column += 1;
        m_Cell.type = XlsxType::Number;
        m_Cell.formula = false;
        m_Cell.hasValue = false;
        m_Cell.value.clear();
        // Most of the time goes into cells: the attributes are walked through once.
        for (const char* const* name = attributes.list(); *name != nullptr; name += 2) {
            if (name[0][0] == 'r' && name[0][1] == '\0') {
                moveTo(name[1]);
            } else if (name[0][0] == 't' && name[0][1] == '\0') {
                m_Cell.type = typeNamed(name[1]);
                m_Cell.unknownType = m_Cell.type == XlsxType::Unknown ? name[1] : "";
            }
        }
        return enter(Place::Cell, true);
    }

    void moveTo(std::string_view reference) {
        const auto place = placeOf(reference);
        if (!place) {
            refuse(inQuotes(reference) + " is no cell");
        }
        m_At = *place;
    }

    bool startContent(std::string_view name) {
        if (name == "v") {
            m_Cell.hasValue = true;
            m_Cell.value.clear();
            return enter(Place::Value, true);
        }
        if (name == "is") {
            m_Inline.begin();
            return enter(Place::Inline, true);
        }
        m_Cell.formula = m_Cell.formula || name == "f";
        return false;
    }

    void endInline() {
        if (!m_Inline.end()) {
            m_Cell.hasValue = true;
            m_Cell.value = m_Inline.text();
            m_Place = Place::Cell;
        }
    }

    void store() try {
        m_Cells.set(m_At.row, m_At.column, readCell([&] { return meaningOf(m_Cell, m_Texts); }));
    } catch (const Error& error) {
        throw Error(error.number(),
                    "cell " + plainAddress(m_At.row, m_At.column) + ": " + error.description());
    }

    const XlsxTexts& m_Texts;
    FileCells& m_Cells;
    Place m_Place = Place::Document;
    CellPlace m_At;
    XlsxCell m_Cell;
    RichText m_Inline;
    PlainRows m_Plain;
};

}  // namespace

void readXlsxSheet(const Parts& parts, const std::string& part, const XlsxTexts& texts, FileCells& cells) {
    const FileCells before = cells;
    try {
        SheetReader reader(texts, cells);
        readXmlPastPlain(parts, part, "<sheetData>", reader);
    } catch (const Error&) {
        // The parser alone knows the place in the part.
        cells.beginAgain(before);
        SheetReader reader(texts, cells);
        readXml(parts, part, reader);
    }
}

}  // namespace TBVNonPara::workbook
