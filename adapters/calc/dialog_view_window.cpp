#include <algorithm>
#include <com/sun/star/awt/PosSize.hpp>
#include <com/sun/star/awt/Toolkit.hpp>
#include <com/sun/star/awt/XLayoutConstrains.hpp>
#include <com/sun/star/awt/XStyleSettingsSupplier.hpp>
#include <com/sun/star/awt/XTopWindow.hpp>
#include <com/sun/star/awt/XUnitConversion.hpp>
#include <com/sun/star/lang/XComponent.hpp>
#include <com/sun/star/util/MeasureUnit.hpp>
#include <uno/current_context.hxx>

#include "adapters/calc/dialog_measures.hpp"
#include "adapters/calc/dialog_names.hpp"

namespace TBVNonPara::calc {

using css::uno::Any;

void DialogView::create(const Reference<css::awt::XWindowPeer>& parent) {
    query<css::awt::XWindow>(m_Dialog)->setVisible(false);
    m_Dialog->createPeer(
        Reference<css::awt::XToolkit>(css::awt::Toolkit::create(m_Context), css::uno::UNO_QUERY_THROW),
        parent);
    setMessageColour();
    m_Heights = heightsOfTheLook();
}

void DialogView::open(const Reference<css::awt::XWindowPeer>& parent) {
    centreOn(query<css::awt::XWindow>(parent));
    show(true);
}

/// A field or box that is given less than its look needs is drawn over its neighbours.
DialogView::Heights DialogView::heightsOfTheLook() const {
    const auto units = query<css::awt::XUnitConversion>(m_Dialog->getPeer());
    const auto needed = [&](const char* name) {
        const auto pixels = query<css::awt::XLayoutConstrains>(control(ascii(name)))->getMinimumSize();
        // Pixels and units are rounded down on the way here and on the way back.
        return std::int32_t{units->convertSizeToLogic(pixels, css::util::MeasureUnit::APPFONT).Height} + 1;
    };
    return {std::max({measures::row, needed(nameOf(Field::First)), needed(controls::test)}),
            std::max({measures::boxHeight, needed(controls::labels), needed(controls::newSheet)}),
            std::max(measures::buttonHeight, needed(controls::run))};
}

/// The office's own dialogs have OK at the right, on some desktops left of Cancel. Which desktop it is the
/// office tells the thread of its windows.
bool DialogView::okComesFirst() {
    OUString desktop;
    if (const auto current = css::uno::getCurrentContext(); current.is()) {
        current->getValueByName("system.desktop-environment") >>= desktop;
    }
    return desktop.matchIgnoreAsciiCase("plasma") || desktop.matchIgnoreAsciiCase("kde") ||
           desktop.matchIgnoreAsciiCase("tde") || desktop.matchIgnoreAsciiCase("lxqt");
}

/// The desktop's settings have no colour for errors, but its ground is known once the window is there: on a
/// dark one dark red could not be read.
void DialogView::setMessageColour() {
    const auto style = query<css::awt::XStyleSettingsSupplier>(m_Dialog->getPeer())->getStyleSettings();
    const std::int32_t ground = style->getDialogColor();
    const std::int32_t brightness =
        ((ground >> 16) & 0xFF) * 3 + ((ground >> 8) & 0xFF) * 6 + (ground & 0xFF);
    constexpr std::int32_t middle = 1280;
    const Any colour(brightness < middle ? measures::messageColourOnDark : measures::messageColour);
    for (const Field field : messagePlaces) {
        set(messageOf(ascii(nameOf(field))), "TextColor", colour);
    }
}

bool DialogView::isAtTicks(std::int32_t left) const {
    const auto units = query<css::awt::XUnitConversion>(m_Dialog->getPeer());
    return units->convertPointToLogic({left, 0}, css::util::MeasureUnit::APPFONT).X <= measures::tickWidth;
}

void DialogView::centreOn(const Reference<css::awt::XWindow>& parent) {
    const auto window = query<css::awt::XWindow>(m_Dialog);
    const css::awt::Rectangle around = parent->getPosSize();
    const css::awt::Rectangle own = window->getPosSize();
    window->setPosSize(around.X + std::max(0, (around.Width - own.Width) / 2),
                       around.Y + std::max(0, (around.Height - own.Height) / 2), 0, 0,
                       css::awt::PosSize::POS);
}

void DialogView::close() {
    query<css::lang::XComponent>(m_Dialog)->dispose();
}

void DialogView::show(bool visible) {
    query<css::awt::XWindow>(m_Dialog)->setVisible(visible);
}

void DialogView::bringToFront() {
    query<css::awt::XTopWindow>(m_Dialog)->toFront();
}

}  // namespace TBVNonPara::calc
