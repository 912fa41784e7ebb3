#include <com/sun/star/awt/ImagePosition.hpp>
#include <com/sun/star/awt/PushButtonType.hpp>
#include <com/sun/star/container/XNameContainer.hpp>

#include "adapters/calc/dialog_names.hpp"
#include "adapters/calc/dialog_view.hpp"

namespace TBVNonPara::calc {

namespace {

using css::beans::XPropertySet;
using css::uno::Any;

/// The icon of the office's own dialogs for the same purpose, in the user's choice of icons.
constexpr auto shrinkIcon = "private:graphicrepository/formula/res/refinp1.png";
constexpr auto upIcon = "private:graphicrepository/cmd/sc_moveup.png";
constexpr auto downIcon = "private:graphicrepository/cmd/sc_movedown.png";

std::string withoutLetter(std::string_view label) {
    std::string text(label);
    std::erase(text, '~');
    return text;
}

/// A label as it is read out: without the mark of its letter and the colon.
std::string spoken(std::string_view label) {
    std::string text(label);
    std::erase(text, '~');
    std::erase(text, ':');
    return text;
}

}  // namespace

void DialogView::addControls() {
    addChoice(controls::test, m_Texts.test);
    addChoice(controls::alternative, m_Texts.alternative);
    addBox("CheckBox", controls::groupsInColumn, m_Texts.groupsInColumn);
    addField(Field::First, m_Texts.firstRange);
    addField(Field::Second, m_Texts.secondRange);
    addField(Field::Groups, m_Texts.groupRange);
    addGroups();
    addField(Field::Blocks, m_Texts.blockRange);
    addBox("CheckBox", controls::missing, m_Texts.missing);
    addBox("CheckBox", controls::visibleRows, m_Texts.visibleRows);
    add("FixedLine", "Report")->setPropertyValue("Label", Any(fromUtf8(m_Texts.report)));
    addBox("RadioButton", controls::newSheet, m_Texts.newSheet);
    addBox("RadioButton", controls::cell, m_Texts.cell);
    // The letter belongs to the button: the field's own label is for screen readers alone.
    addField(Field::Output, withoutLetter(m_Texts.cell));
    addBox("CheckBox", controls::overwrite, m_Texts.overwrite);
    addBox("CheckBox", controls::labels, m_Texts.labels);
    addBox("CheckBox", controls::descriptives, m_Texts.descriptives);
    addBox("CheckBox", controls::ignoreTies, m_Texts.ignoreTies);
    addBox("CheckBox", controls::details, m_Texts.details);
    addLabelled("Edit", nameOf(Field::Confidence), m_Texts.confidence);
    add("FixedText", messageOf(ascii(nameOf(Field::Confidence))));
    addChoice(controls::adjustment, m_Texts.adjustment);
    addBox("CheckBox", controls::picture, m_Texts.picture);
    addBox("CheckBox", controls::live, m_Texts.live);
    add("FixedText", messageOf(ascii(nameOf(Field::None))));
    addButtons();
    set(ascii(controls::run), "DefaultButton", Any(true));
    const auto readyMessage = [&](Field field) {
        const OUString name = messageOf(ascii(nameOf(field)));
        set(name, "MultiLine", Any(true));
        set(name, "EnableVisible", Any(false));
    };
    std::ranges::for_each(messagePlaces, readyMessage);
}

Reference<XPropertySet> DialogView::add(const char* kind, const OUString& name) {
    const Reference<XPropertySet> added(
        m_Models->createInstance("com.sun.star.awt.UnoControl" + ascii(kind) + "Model"),
        css::uno::UNO_QUERY_THROW);
    added->setPropertyValue("Name", Any(name));
    added->setPropertyValue("TabIndex", Any(m_TabIndex));
    m_TabIndex = static_cast<std::int16_t>(m_TabIndex + 1);
    query<css::container::XNameContainer>(m_Models)->insertByName(name, Any(added));
    return added;
}

void DialogView::addLabelled(const char* kind, const char* name, std::string_view label) {
    add("FixedText", labelOf(ascii(name)))->setPropertyValue("Label", Any(fromUtf8(label)));
    add(kind, ascii(name));
}

void DialogView::addChoice(const char* name, std::string_view label) {
    addLabelled("ListBox", name, label);
    set(ascii(name), "Dropdown", Any(true));
    set(ascii(name), "LineCount", Any(sal_Int16(8)));
}

void DialogView::addField(Field field, std::string_view label) {
    addLabelled("Edit", nameOf(field), label);
    const OUString name = ascii(nameOf(field));
    addIcon(pickerOf(name), shrinkIcon, {});
    add("FixedText", messageOf(name));
    tellPicker(field, label);
}

/// A button with an icon alone: the text is shown at the pointer and is its name for screen readers.
void DialogView::addIcon(const OUString& name, const char* icon, std::string_view help) {
    const auto button = add("Button", name);
    button->setPropertyValue("ImageURL", Any(ascii(icon)));
    button->setPropertyValue("ImagePosition", Any(css::awt::ImagePosition::Centered));
    button->setPropertyValue("HelpText", Any(fromUtf8(help)));
}

void DialogView::addGroups() {
    addLabelled("ListBox", controls::groups, m_Texts.groupTicks);
    addIcon(ascii(controls::moveUp), upIcon, m_Texts.moveUp);
    addIcon(ascii(controls::moveDown), downIcon, m_Texts.moveDown);
}

void DialogView::tellPicker(Field field, std::string_view label) {
    const std::string help = std::string(m_Texts.pickTitle) + ": " + spoken(label);
    set(pickerOf(ascii(nameOf(field))), "HelpText", Any(fromUtf8(help)));
}

void DialogView::addBox(const char* kind, const char* name, std::string_view label) {
    add(kind, ascii(name))->setPropertyValue("Label", Any(fromUtf8(label)));
}

/// From left to right, as Tab goes through them.
void DialogView::addButtons() {
    addButton(controls::help, m_Texts.help, css::awt::PushButtonType_STANDARD);
    if (m_OkFirst) {
        addButton(controls::run, m_Texts.ok, css::awt::PushButtonType_STANDARD);
    }
    addButton(controls::close, m_Texts.close, css::awt::PushButtonType_STANDARD);
    if (!m_OkFirst) {
        addButton(controls::run, m_Texts.ok, css::awt::PushButtonType_STANDARD);
    }
}

void DialogView::addButton(const char* name, std::string_view label, std::int16_t type) {
    const auto button = add("Button", ascii(name));
    button->setPropertyValue("Label", Any(fromUtf8(label)));
    button->setPropertyValue("PushButtonType", Any(type));
}

}  // namespace TBVNonPara::calc
