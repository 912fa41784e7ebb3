#include "adapters/calc/dialog_view.hpp"

#include <algorithm>
#include <com/sun/star/awt/XButton.hpp>
#include <com/sun/star/awt/XCheckBox.hpp>
#include <com/sun/star/awt/XListBox.hpp>
#include <com/sun/star/awt/XRadioButton.hpp>
#include <com/sun/star/awt/XTextComponent.hpp>
#include <com/sun/star/awt/XTopWindow.hpp>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <vector>

#include "adapters/calc/dialog_names.hpp"

namespace TBVNonPara::calc {

namespace {

using css::beans::XPropertySet;
using css::uno::Any;

}  // namespace

const char* DialogView::nameOf(Field field) {
    switch (field) {
        case Field::First:
            return "First";
        case Field::Second:
            return "Second";
        case Field::Groups:
            return "Groups";
        case Field::Blocks:
            return "Blocks";
        case Field::Output:
            return "Output";
        case Field::Confidence:
            return "Confidence";
        case Field::None:
            break;
    }
    return "Dialog";
}

Field DialogView::fieldOfPicker(const OUString& button) {
    for (const Field field : rangeFields) {
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

Reference<XPropertySet> DialogView::model(const OUString& name) const {
    return {query<css::container::XNameAccess>(m_Models)->getByName(name), css::uno::UNO_QUERY_THROW};
}

void DialogView::set(const OUString& name, const char* property, const Any& value) const {
    model(name)->setPropertyValue(ascii(property), value);
}

Reference<css::awt::XControl> DialogView::control(const OUString& name) const {
    return query<css::awt::XControlContainer>(m_Dialog)->getControl(name);
}

void DialogView::listen(const Reference<css::awt::XActionListener>& actions,
                        const Reference<css::awt::XItemListener>& items,
                        const Reference<css::awt::XTextListener>& texts,
                        const Reference<css::awt::XMouseListener>& mouse,
                        const Reference<css::awt::XKeyListener>& keys,
                        const Reference<css::awt::XTopWindowListener>& window) {
    const auto listenTo = [&](const OUString& name) {
        const auto button = query<css::awt::XButton>(control(name));
        button->setActionCommand(name);
        button->addActionListener(actions);
    };
    for (const char* name :
         {controls::run, controls::close, controls::help, controls::moveUp, controls::moveDown}) {
        listenTo(ascii(name));
    }
    for (const Field field : rangeFields) {
        listenTo(pickerOf(ascii(nameOf(field))));
    }
    query<css::awt::XListBox>(control(ascii(controls::test)))->addItemListener(items);
    for (const char* name : {controls::newSheet, controls::cell}) {
        query<css::awt::XRadioButton>(control(ascii(name)))->addItemListener(items);
    }
    for (const char* name : {controls::groupsInColumn, controls::missing, controls::visibleRows,
                             controls::labels, controls::ignoreTies, controls::details}) {
        query<css::awt::XCheckBox>(control(ascii(name)))->addItemListener(items);
    }
    const auto groups = query<css::awt::XWindow>(control(ascii(controls::groups)));
    groups->addMouseListener(mouse);
    groups->addKeyListener(keys);
    for (const Field field : dataFields) {
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

void DialogView::fillWith(const char* list, std::span<const std::string> items) {
    fill(list, std::vector<std::string_view>(items.begin(), items.end()));
}

void DialogView::showGroups(std::span<const std::string> lines, std::int32_t selected) {
    fillWith(controls::groups, lines);
    if (selected >= 0) {
        select(controls::groups, selected);
    }
}

// While a mouse button is down the control knows it, the model does not yet.
std::int32_t DialogView::selectedGroup() const {
    return query<css::awt::XListBox>(control(ascii(controls::groups)))->getSelectedItemPos();
}

void DialogView::setGroupsLabel(std::string_view label) {
    set(labelOf(ascii(controls::groups)), "Label", Any(fromUtf8(label)));
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
    for (const Field field : messagePlaces) {
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
