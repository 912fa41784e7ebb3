#include "tbvnonpara/files/ods/content.hpp"

#include <set>
#include <utility>

#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/error.hpp"
#include "tbvnonpara/files/ods/cell.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

constexpr std::size_t mostOdsSheets = 10000;

/// Copies of other files' cells are kept beside the sheets, under names of this form: 'file:///a.ods'#Sheet1.
bool isCopyOfOtherFile(std::string_view name) noexcept {
    return name.starts_with('\'') && name.find("'#") != std::string_view::npos;
}

class ContentReader final : public XmlHandler {
 public:
    bool start(const XmlName& name, const XmlAttributes& attributes) override {
        const Place place = m_Open.empty() ? Place::Document : m_Open.back();
        const Place inside = startIn(place, name, attributes);
        if (inside != Place::Unwanted) {
            m_Open.push_back(inside);
        }
        return inside != Place::Unwanted;
    }

    void end() override {
        const Place ended = m_Open.back();
        m_Open.pop_back();
        if (ended == Place::Paragraph && m_Open.back() == Place::Cell) {
            m_Cell.text.endParagraph();
        } else if (ended == Place::Cell) {
            endCell();
        } else if (ended == Place::Row) {
            endRow();
        }
    }

    void text(std::string_view piece) override {
        if (!m_Open.empty() && m_Open.back() == Place::Paragraph) {
            m_Cell.text.append(piece);
        }
    }

    FileContents contents;

 private:
    enum class Place {
        Unwanted,
        Document,
        Content,
        Styles,
        TableStyle,
        Body,
        Sheets,
        Settings,
        Rows,
        Row,
        Cell,
        Paragraph
    };

    /// A cell of the row that is being read, and how many columns it fills.
    struct RowCell {
        Index column;
        Index columns;
        ReadCell cell;
    };

    Place startIn(Place place, const XmlName& name, const XmlAttributes& attributes) {
        switch (place) {
            case Place::Document:
                return startDocument(name, attributes);
            case Place::Content:
                return startContent(name);
            case Place::Styles:
                return startStyle(name, attributes);
            case Place::TableStyle:
                return readTableStyle(name, attributes);
            case Place::Body:
                return name == XmlName{Vocabulary::Office, "spreadsheet"} ? Place::Sheets : Place::Unwanted;
            case Place::Sheets:
            case Place::Settings:
                return startSheet(name, attributes);
            case Place::Rows:
                return startRows(name, attributes);
            case Place::Row:
                return startCell(name, attributes);
            case Place::Cell:
                return startParagraph(name);
            case Place::Paragraph:
                return startInParagraph(name, attributes);
            default:
                return Place::Unwanted;
        }
    }

    static Place startDocument(const XmlName& name, const XmlAttributes& attributes) {
        const bool flat = name == XmlName{Vocabulary::Office, "document"};
        if (!flat && name != XmlName{Vocabulary::Office, "document-content"}) {
            refuse("this is no content of a document, but <" + std::string(name.local) + ">");
        }
        constexpr std::string_view workbook = "application/vnd.oasis.opendocument.spreadsheet";
        const auto type = attributes.find(Vocabulary::Office, "mimetype").value_or(workbook);
        if (!type.starts_with(workbook)) {
            refuse("this is a document of the type " + std::string(type) + ", no workbook");
        }
        return Place::Content;
    }

    static Place startContent(const XmlName& name) noexcept {
        if (name == XmlName{Vocabulary::Office, "automatic-styles"}) {
            return Place::Styles;
        }
        return name == XmlName{Vocabulary::Office, "body"} ? Place::Body : Place::Unwanted;
    }

    Place startStyle(const XmlName& name, const XmlAttributes& attributes) {
        if (name != XmlName{Vocabulary::Style, "style"} ||
            attributes.find(Vocabulary::Style, "family") != "table") {
            return Place::Unwanted;
        }
        m_Style = attributes.find(Vocabulary::Style, "name").value_or("");
        return Place::TableStyle;
    }

    Place readTableStyle(const XmlName& name, const XmlAttributes& attributes) {
        if (name == XmlName{Vocabulary::Style, "table-properties"} &&
            attributes.find(Vocabulary::Table, "display") == "false") {
            m_HiddenStyles.insert(m_Style);
        }
        return Place::Unwanted;
    }

    Place startSheet(const XmlName& name, const XmlAttributes& attributes) {
        if (name == XmlName{Vocabulary::Table, "calculation-settings"}) {
            return Place::Settings;
        }
        if (name == XmlName{Vocabulary::Table, "null-date"}) {
            const auto day = attributes.find(Vocabulary::Table, "date-value").value_or("1899-12-30");
            m_Dates = dateSystemFrom(day).value_or(DateSystem());
            return Place::Unwanted;
        }
        const auto title = attributes.find(Vocabulary::Table, "name").value_or("");
        if (name != XmlName{Vocabulary::Table, "table"} || isCopyOfOtherFile(title)) {
            return Place::Unwanted;
        }
        if (contents.sheets.size() == mostOdsSheets) {
            refuse("more than " + std::to_string(mostOdsSheets) + " sheets");
        }
        FileSheet& sheet = contents.sheets.emplace_back();
        sheet.name = title;
        const auto style = attributes.find(Vocabulary::Table, "style-name").value_or("");
        sheet.hidden = m_HiddenStyles.contains(std::string(style));
        m_Cells.begin(sheet);
        m_Row = 1;
        return Place::Rows;
    }

    Place startRows(const XmlName& name, const XmlAttributes& attributes) {
        if (name.vocabulary != Vocabulary::Table) {
            return Place::Unwanted;
        }
        if (name.local == "table-row") {
            m_Rows = static_cast<Index>(
                repetitions(attributes.find(Vocabulary::Table, "number-rows-repeated").value_or("1")));
            m_Column = 1;
            m_RowCells.clear();
            return Place::Row;
        }
        const bool group = name.local == "table-row-group" || name.local == "table-rows" ||
                           name.local == "table-header-rows";
        return group ? Place::Rows : Place::Unwanted;
    }

    Place startCell(const XmlName& name, const XmlAttributes& attributes) {
        if (name != XmlName{Vocabulary::Table, "table-cell"} &&
            name != XmlName{Vocabulary::Table, "covered-table-cell"}) {
            return Place::Unwanted;
        }
        m_Cell.read(attributes);
        return Place::Cell;
    }

    Place startParagraph(const XmlName& name) {
        if (name != XmlName{Vocabulary::Text, "p"} && name != XmlName{Vocabulary::Text, "h"}) {
            return Place::Unwanted;
        }
        m_Cell.text.startParagraph();
        return Place::Paragraph;
    }

    /// Spans, links and fields show their text; notes and phonetic guides are no part of it.
    Place startInParagraph(const XmlName& name, const XmlAttributes& attributes) {
        if (name.vocabulary != Vocabulary::Text || name.local == "note" || name.local == "ruby-text") {
            return Place::Unwanted;
        }
        if (name.local == "s") {
            m_Cell.text.appendMeant(repetitions(attributes.find(Vocabulary::Text, "c").value_or("1")), ' ');
            return Place::Unwanted;
        }
        if (name.local == "tab" || name.local == "line-break") {
            m_Cell.text.appendMeant(1, name.local == "tab" ? '\t' : '\n');
            return Place::Unwanted;
        }
        return Place::Paragraph;
    }

    void endCell() try {
        const auto columns = static_cast<Index>(m_Cell.columns);
        ReadCell cell = readCell([&] { return meaningOf(m_Cell, m_Dates, m_Texts); });
        if (!isEmpty(cell.value)) {
            if (m_Column + columns - 1 > sheetColumns) {
                refuse("filled cells beyond column 16384 (XFD), the last of a sheet");
            }
            m_RowCells.push_back({m_Column, columns, std::move(cell)});
        }
        m_Column += columns;
    } catch (const Error& error) {
        const std::string column = columnLetters(std::min(m_Column, sheetColumns));
        throw Error(error.number(), "sheet \"" + contents.sheets.back().name + "\", cell " + column +
                                        std::to_string(m_Row) + ": " + error.description());
    }

    void endRow() {
        for (RowCell& cell : m_RowCells) {
            if (m_Rows == 1 && cell.columns == 1) {
                m_Cells.set(m_Row, cell.column, std::move(cell.cell));
            } else {
                m_Cells.fill({m_Row, cell.column, m_Row + m_Rows - 1, cell.column + cell.columns - 1},
                             cell.cell);
            }
        }
        m_Row += m_Rows;
    }

    std::vector<Place> m_Open;
    std::string m_Style;
    std::set<std::string> m_HiddenStyles;
    DateSystem m_Dates;
    FileCells m_Cells;
    SharedTexts m_Texts;
    Index m_Row = 1;
    Index m_Rows = 1;
    Index m_Column = 1;
    OdsCell m_Cell;
    std::vector<RowCell> m_RowCells;
};

}  // namespace

FileContents readOdsContent(const Parts& parts, const std::string& part) {
    ContentReader reader;
    readXml(parts, part, reader);
    return std::move(reader.contents);
}

}  // namespace TBVNonPara::workbook
