#include "adapters/calc/formats.hpp"

#include <array>
#include <com/sun/star/awt/FontWeight.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>
#include <com/sun/star/table/BorderLine2.hpp>
#include <com/sun/star/table/CellHoriJustify.hpp>
#include <com/sun/star/table/TableBorder2.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/util/XNumberFormatsSupplier.hpp>

namespace TBVNonPara::calc {

namespace {

/// A hair's breadth over half a point, in hundredths of a millimetre: the thinnest ordinary line.
constexpr sal_Int16 thinLine = 26;

css::table::CellHoriJustify justification(HorizontalAlignment alignment) {
    switch (alignment) {
        case AlignCentre:
        case AlignCentreAcrossSelection:
            return css::table::CellHoriJustify_CENTER;
        case AlignLeft:
            return css::table::CellHoriJustify_LEFT;
        case AlignRight:
            return css::table::CellHoriJustify_RIGHT;
        case AlignGeneral:
            break;
    }
    return css::table::CellHoriJustify_STANDARD;
}

css::table::BorderLine2 drawn(BorderLine line) {
    css::table::BorderLine2 result;
    if (line == BorderLine::Thin) {
        result.OuterLineWidth = thinLine;
        result.LineWidth = thinLine;
    }
    return result;
}

void moveRight(const Reference<css::text::XTextCursor>& cursor, Long characters, bool select) {
    const bool moved = cursor->goRight(static_cast<sal_Int16>(Integer(characters.value()).value()), select);
    if (!moved && characters > 0) {
        raise(RuntimeError::InvalidProcedureCall);
    }
}

}  // namespace

css::lang::Locale localeOfNumbers(const DocumentRef& document) {
    const auto families = given(query<css::style::XStyleFamiliesSupplier>(document)->getStyleFamilies());
    const Reference<css::container::XNameAccess> styles(families->getByName("CellStyles"),
                                                        css::uno::UNO_QUERY_THROW);
    const Reference<css::beans::XPropertySet> ordinary(styles->getByName("Default"),
                                                       css::uno::UNO_QUERY_THROW);
    sal_Int32 key = 0;
    ordinary->getPropertyValue("NumberFormat") >>= key;
    const auto formats = given(query<css::util::XNumberFormatsSupplier>(document)->getNumberFormats());
    css::lang::Locale locale;
    property(formats->getByKey(key), "Locale") >>= locale;
    return locale;
}

void setNumberFormat(const DocumentRef& document, const Cells& cells, std::string_view format,
                     const css::lang::Locale& language) {
    const css::lang::Locale english("en", "US", {});
    const auto formats = given(query<css::util::XNumberFormatsSupplier>(document)->getNumberFormats());
    setProperty(cells, "NumberFormat", formats->addNewConverted(fromUtf8(format), english, language));
}

void setAlignment(const Cells& cells, HorizontalAlignment alignment) {
    setProperty(cells, "HoriJustify", justification(alignment));
}

void setInteriorColour(const Cells& cells, Integer index) {
    constexpr std::array<sal_Int32, 16> palette{0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00,
                                                0xFF00FF, 0x00FFFF, 0x800000, 0x008000, 0x000080, 0x808000,
                                                0x800080, 0x008080, 0xC0C0C0, 0x808080};
    constexpr sal_Int32 transparent = -1;
    if (index == noInteriorColour) {
        setProperty(cells, "CellBackColor", transparent);
    } else if (index >= 1 && index <= Integer(palette.size())) {
        setProperty(cells, "CellBackColor", palette[static_cast<std::size_t>(index.value() - 1)]);
    } else {
        raiseHostError("There is no interior colour " + std::to_string(index.value()) + ".");
    }
}

void setBold(const Cells& cells, bool bold) {
    setProperty(cells, "CharWeight", bold ? css::awt::FontWeight::BOLD : css::awt::FontWeight::NORMAL);
}

void setBorder(const Cells& cells, BorderEdge edge, BorderLine line) {
    css::table::TableBorder2 border;
    switch (edge) {
        case BorderEdge::Left:
            border.LeftLine = drawn(line);
            border.IsLeftLineValid = true;
            break;
        case BorderEdge::Top:
            border.TopLine = drawn(line);
            border.IsTopLineValid = true;
            break;
        case BorderEdge::Bottom:
            border.BottomLine = drawn(line);
            border.IsBottomLineValid = true;
            break;
        case BorderEdge::Right:
            border.RightLine = drawn(line);
            border.IsRightLineValid = true;
            break;
    }
    setProperty(cells, "TableBorder2", border);
}

void setSubscript(const Reference<css::table::XCell>& cell, Long start, Long length, bool subscript) {
    constexpr sal_Int16 lowered = -33;
    constexpr sal_Int8 loweredHeight = 58;
    constexpr sal_Int8 fullHeight = 100;

    const auto cursor = query<css::text::XText>(cell)->createTextCursor();
    cursor->gotoStart(false);
    moveRight(cursor, start - 1, false);
    moveRight(cursor, length, true);
    setProperty(cursor, "CharEscapement", subscript ? lowered : sal_Int16(0));
    setProperty(cursor, "CharEscapementHeight", subscript ? loweredHeight : fullHeight);
}

}  // namespace TBVNonPara::calc
