#include "adapters/calc/picture_on_sheet.hpp"

#include <cmath>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/drawing/XDrawPagesSupplier.hpp>
#include <com/sun/star/drawing/XShape.hpp>
#include <com/sun/star/graphic/GraphicProvider.hpp>
#include <com/sun/star/io/SequenceInputStream.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>

namespace TBVNonPara::calc {

namespace {

using css::uno::Any;

/// A pixel has 1/96 of an inch.
std::int32_t hundredthsOfMillimetres(double pixels) {
    return static_cast<std::int32_t>(std::lround(pixels * 2540 / 96));
}

/// The font of cells that have none of their own.
OUString fontOf(const DocumentRef& document) {
    using css::container::XNameAccess;
    const auto families = given(query<css::style::XStyleFamiliesSupplier>(document)->getStyleFamilies());
    const Reference<XNameAccess> styles(families->getByName("CellStyles"), css::uno::UNO_QUERY_THROW);
    const Reference<css::beans::XPropertySet> plain(styles->getByName("Default"), css::uno::UNO_QUERY_THROW);
    OUString font;
    plain->getPropertyValue("CharFontName") >>= font;
    return font;
}

Reference<css::graphic::XGraphic> imageOf(const Context& context, const std::string& svg) {
    const css::uno::Sequence<sal_Int8> bytes(reinterpret_cast<const sal_Int8*>(svg.data()),
                                             static_cast<sal_Int32>(svg.size()));
    const auto named = [](const char* name, const Any& value) {
        css::beans::PropertyValue property;
        property.Name = OUString::createFromAscii(name);
        property.Value = value;
        return property;
    };
    const Reference<css::io::XInputStream> stream(
        css::io::SequenceInputStream::createStreamFromSequence(context, bytes), css::uno::UNO_QUERY_THROW);
    const auto image = css::graphic::GraphicProvider::create(context)->queryGraphic(
        sequenceOf(named("InputStream", Any(stream)), named("MimeType", Any(OUString("image/svg+xml")))));
    if (!image.is()) {
        raiseHostError("The office made no image of the drawing.");
    }
    return image;
}

}  // namespace

std::int32_t heightOnSheet(const rendering::Drawing& drawing) {
    return hundredthsOfMillimetres(drawing.height);
}

void putPicture(const Context& context, const SheetAreas& place, const rendering::Drawing& drawing) {
    hosted([&] {
        const CellArea& corner = place.areas.front();
        const auto cell = place.sheet->getCellByPosition(corner.left, corner.top);
        const std::string font = toUtf8(fontOf(place.document)) + ", sans-serif";
        const auto image = imageOf(context, svgFile(drawing, font));
        const auto documents = query<css::lang::XMultiServiceFactory>(place.document);
        const Reference<css::drawing::XShape> shape(
            documents->createInstance("com.sun.star.drawing.GraphicObjectShape"), css::uno::UNO_QUERY_THROW);
        setProperty(shape, "Graphic", image);
        const auto pages = given(query<css::drawing::XDrawPagesSupplier>(place.document)->getDrawPages());
        Reference<css::drawing::XDrawPage>(pages->getByIndex(positionOf(place.sheet)),
                                           css::uno::UNO_QUERY_THROW)
            ->add(shape);
        shape->setSize({hundredthsOfMillimetres(rendering::Svg::width), heightOnSheet(drawing)});
        css::awt::Point position;
        property(cell, "Position") >>= position;
        shape->setPosition(position);
        setProperty(shape, "Anchor", cell);
        setProperty(shape, "ResizeWithCell", false);
        setProperty(shape, "Title", fromUtf8(drawing.name));
        setProperty(shape, "Description", fromUtf8(drawing.description));
    });
}

}  // namespace TBVNonPara::calc
