#include "adapters/calc/dialog_view.hpp"

#include <algorithm>
#include <com/sun/star/awt/ImagePosition.hpp>
#include <com/sun/star/awt/PushButtonType.hpp>
#include <com/sun/star/awt/XButton.hpp>
#include <com/sun/star/awt/XCheckBox.hpp>
#include <com/sun/star/awt/XListBox.hpp>
#include <com/sun/star/awt/XRadioButton.hpp>
#include <com/sun/star/awt/XTextComponent.hpp>
#include <com/sun/star/awt/XTopWindow.hpp>
#include <com/sun/star/container/XNameContainer.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>

#include "adapters/calc/dialog_measures.hpp"
#include "adapters/calc/dialog_names.hpp"

namespace TBVNonPara::calc {

namespace {

using css::beans::XPropertySet;
using css::uno::Any;

/// The icon of the office's own dialogs for the same purpose, in the user's choice of icons.
constexpr auto shrinkIcon = "private:graphicrepository/formula/res/refinp1.png";

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

const char* DialogView::nameOf(Field field) {
    switch (field) {
        case Field::First:
            return "First";
        case Field::Second:
            return "Second";
        case Field::Output:
            return "Output";
        case Field::None:
            break;
    }
    return "Dialog";
}

Field DialogView::fieldOfPicker(const OUString& button) {
    for (const Field field : {Field::First, Field::Second, Field::Output}) {
        if (button == pickerOf(ascii(nameOf(field)))) {
            return field;
        }
    }
    return Field::None;
}

DialogView::DialogView(const Context& context, const DialogTexts& texts)
    : m_Context(context), m_Texts(texts), m_OkFirst(okComesFirst()) {
    const auto services = context->getServiceManager();
    m_Models.set(services->createInstanceWithContext("com.sun.star.awt.UnoControlDialogModel", context),
                 css::uno::UNO_QUERY_THROW);
    m_Dialog.set(services->createInstanceWithContext("com.sun.star.awt.UnoControlDialog", context),
                 css::uno::UNO_QUERY_THROW);
    const auto dialog = query<XPropertySet>(m_Models);
    dialog->setPropertyValue("Title", Any(fromUtf8(texts.title)));
    dialog->setPropertyValue("Moveable", Any(true));
    dialog->setPropertyValue("Closeable", Any(true));
    addControls();
    m_Dialog->setModel(query<css::awt::XControlModel>(m_Models));
}

void DialogView::addControls() {
    addLabelled("ListBox", controls::test, m_Texts.test);
    addLabelled("ListBox", controls::alternative, m_Texts.alternative);
    for (const char* list : {controls::test, controls::alternative}) {
        set(ascii(list), "Dropdown", Any(true));
        set(ascii(list), "LineCount", Any(sal_Int16(8)));
    }
    addField(Field::First, m_Texts.firstRange);
    addField(Field::Second, m_Texts.secondRange);
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
    add("FixedText", messageOf(ascii(nameOf(Field::None))));
    addButtons();
    set(ascii(controls::run), "DefaultButton", Any(true));
    for (const Field field : {Field::First, Field::Second, Field::Output, Field::None}) {
        const OUString name = messageOf(ascii(nameOf(field)));
        set(name, "MultiLine", Any(true));
        set(name, "EnableVisible", Any(false));
    }
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

Reference<XPropertySet> DialogView::model(const OUString& name) const {
    return {query<css::container::XNameAccess>(m_Models)->getByName(name), css::uno::UNO_QUERY_THROW};
}

void DialogView::set(const OUString& name, const char* property, const Any& value) const {
    model(name)->setPropertyValue(ascii(property), value);
}

void DialogView::addLabelled(const char* kind, const char* name, std::string_view label) {
    add("FixedText", labelOf(ascii(name)))->setPropertyValue("Label", Any(fromUtf8(label)));
    add(kind, ascii(name));
}

void DialogView::addField(Field field, std::string_view label) {
    addLabelled("Edit", nameOf(field), label);
    const OUString name = ascii(nameOf(field));
    const auto picker = add("Button", pickerOf(name));
    picker->setPropertyValue("ImageURL", Any(ascii(shrinkIcon)));
    picker->setPropertyValue("ImagePosition", Any(css::awt::ImagePosition::Centered));
    add("FixedText", messageOf(name));
    tellPicker(field, label);
}

// All pickers bear the same icon: this text is shown at the pointer and is their name for screen readers.
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

Reference<css::awt::XControl> DialogView::control(const OUString& name) const {
    return query<css::awt::XControlContainer>(m_Dialog)->getControl(name);
}

void DialogView::listen(const Reference<css::awt::XActionListener>& actions,
                        const Reference<css::awt::XItemListener>& items,
                        const Reference<css::awt::XTextListener>& texts,
                        const Reference<css::awt::XTopWindowListener>& window) {
    for (const OUString& name :
         {ascii(controls::run), ascii(controls::close), ascii(controls::help),
          pickerOf(ascii(nameOf(Field::First))), pickerOf(ascii(nameOf(Field::Second))),
          pickerOf(ascii(nameOf(Field::Output)))}) {
        const auto button = query<css::awt::XButton>(control(name));
        button->setActionCommand(name);
        button->addActionListener(actions);
    }
    query<css::awt::XListBox>(control(ascii(controls::test)))->addItemListener(items);
    for (const char* name : {controls::newSheet, controls::cell}) {
        query<css::awt::XRadioButton>(control(ascii(name)))->addItemListener(items);
    }
    query<css::awt::XCheckBox>(control(ascii(controls::visibleRows)))->addItemListener(items);
    for (const Field field : {Field::First, Field::Second}) {
        query<css::awt::XTextComponent>(control(ascii(nameOf(field))))->addTextListener(texts);
    }
    query<css::awt::XTopWindow>(m_Dialog)->addTopWindowListener(window);
}

std::int32_t DialogView::selected(const char* list) const {
    css::uno::Sequence<sal_Int16> positions;
    model(ascii(list))->getPropertyValue("SelectedItems") >>= positions;
    return positions.hasElements() ? positions[0] : 0;
}

void DialogView::select(const char* list, std::int32_t position) {
    set(ascii(list), "SelectedItems", Any(sequenceOf(static_cast<sal_Int16>(position))));
}

void DialogView::fill(const char* list, std::span<const std::string_view> items) {
    css::uno::Sequence<OUString> texts(static_cast<sal_Int32>(items.size()));
    std::ranges::transform(items, texts.getArray(), fromUtf8);
    set(ascii(list), "StringItemList", Any(texts));
}

bool DialogView::checked(const char* box) const {
    sal_Int16 state = 0;
    model(ascii(box))->getPropertyValue("State") >>= state;
    return state == 1;
}

void DialogView::check(const char* box, bool checked) {
    set(ascii(box), "State", Any(static_cast<sal_Int16>(checked ? 1 : 0)));
}

std::string DialogView::text(Field field) const {
    OUString text;
    model(ascii(nameOf(field)))->getPropertyValue("Text") >>= text;
    return toUtf8(text.trim());
}

void DialogView::setText(Field field, std::string_view text) {
    set(ascii(nameOf(field)), "Text", Any(fromUtf8(text)));
}

void DialogView::setLabel(Field field, std::string_view label, std::string_view help) {
    set(labelOf(ascii(nameOf(field))), "Label", Any(fromUtf8(label)));
    set(ascii(nameOf(field)), "HelpText", Any(fromUtf8(help)));
    tellPicker(field, label);
}

void DialogView::setMessage(Field field, std::string_view message) {
    set(messageOf(ascii(nameOf(field))), "Label", Any(fromUtf8(message)));
}

void DialogView::clearMessages() {
    for (const Field field : {Field::First, Field::Second, Field::Output, Field::None}) {
        setMessage(field, {});
    }
}

void DialogView::setBoxLabel(const char* box, std::string_view label) {
    set(ascii(box), "Label", Any(fromUtf8(label)));
}

void DialogView::setCloseLabel(std::string_view label) {
    set(ascii(controls::close), "Label", Any(fromUtf8(label)));
}

void DialogView::focus(Field field) {
    if (field != Field::None) {
        query<css::awt::XWindow>(control(ascii(nameOf(field))))->setFocus();
    }
}

}  // namespace TBVNonPara::calc
