#include <algorithm>
#include <com/sun/star/awt/InvalidateStyle.hpp>

#include "adapters/calc/dialog_measures.hpp"
#include "adapters/calc/dialog_names.hpp"

namespace TBVNonPara::calc {

using css::beans::XPropertySet;
using css::uno::Any;

struct DialogView::Place {
    std::int32_t left;
    std::int32_t top;
    std::int32_t width;
    std::int32_t height;
};

void DialogView::place(const OUString& name, const Place& place) const {
    set(name, "PositionX", Any(place.left));
    set(name, "PositionY", Any(place.top));
    set(name, "Width", Any(place.width));
    set(name, "Height", Any(place.height));
    set(name, "EnableVisible", Any(true));
}

void DialogView::hide(const OUString& name) const {
    set(name, "EnableVisible", Any(false));
}

std::int32_t DialogView::arrangeMessage(Field field, std::int32_t left, std::int32_t top) {
    const OUString name = messageOf(ascii(nameOf(field)));
    OUString message;
    model(name)->getPropertyValue("Label") >>= message;
    if (message.isEmpty()) {
        hide(name);
        return top;
    }
    const std::int32_t width = measures::width - measures::margin - left;
    std::int32_t lines = 0;
    for (std::int32_t start = 0; start >= 0;) {
        lines += 1 + message.getToken(0, '\n', start).getLength() * measures::letter / width;
    }
    lines = std::min(lines, 6);
    place(name, {left, top, width, lines * measures::line});
    return top + lines * measures::line + measures::gap;
}

std::int32_t DialogView::arrangeField(Field field, std::int32_t top, bool enabled) {
    const OUString name = ascii(nameOf(field));
    const std::int32_t pickerLeft = measures::width - measures::margin - measures::pickerWidth;
    if (field != Field::Output) {
        place(labelOf(name), {measures::margin, top + (m_Heights.row - measures::line) / 2,
                              measures::labelWidth, measures::line});
    } else {
        // The radio button before it says the same; too small to be seen, this label is for screen readers.
        place(labelOf(name), {measures::fieldLeft - 2, top, 1, 1});
    }
    place(name, {measures::fieldLeft, top, pickerLeft - measures::gap - measures::fieldLeft, m_Heights.row});
    place(pickerOf(name), {pickerLeft, top, measures::pickerWidth, m_Heights.row});
    set(name, "Enabled", Any(enabled));
    set(pickerOf(name), "Enabled", Any(enabled));
    return arrangeMessage(field, measures::fieldLeft, top + m_Heights.row + measures::gap);
}

std::int32_t DialogView::arrangeRowIf(bool shown, const char* name, std::int32_t top, bool enabled) {
    if (!shown) {
        hide(labelOf(ascii(name)));
        hide(ascii(name));
        return top;
    }
    place(labelOf(ascii(name)), {measures::margin, top + (m_Heights.row - measures::line) / 2,
                                 measures::labelWidth, measures::line});
    place(ascii(name), {measures::fieldLeft, top, measures::width - measures::margin - measures::fieldLeft,
                        m_Heights.row});
    set(ascii(name), "Enabled", Any(enabled));
    return top + m_Heights.row + measures::gap;
}

std::int32_t DialogView::arrangeBox(const char* name, std::int32_t top, bool enabled) {
    place(ascii(name), {measures::margin, top, measures::width - 2 * measures::margin, m_Heights.box});
    set(ascii(name), "Enabled", Any(enabled));
    return top + m_Heights.box + measures::gap;
}

std::int32_t DialogView::arrangeBoxIf(bool shown, const char* name, std::int32_t top, bool enabled) {
    if (shown) {
        return arrangeBox(name, top, enabled);
    }
    hide(ascii(name));
    return top;
}

std::int32_t DialogView::arrangeReport(std::int32_t top, const DialogState& state) {
    place("Report", {measures::margin, top, measures::width - 2 * measures::margin, measures::line});
    top = arrangeBox(controls::newSheet, top + measures::line + measures::gap, !state.running);
    place(ascii(controls::cell),
          {measures::margin, top + (m_Heights.row - m_Heights.box) / 2, measures::labelWidth, m_Heights.box});
    set(ascii(controls::cell), "Enabled", Any(!state.running));
    top = arrangeField(Field::Output, top, state.outputCell && !state.running);
    place(
        ascii(controls::overwrite),
        {measures::fieldLeft, top, measures::width - measures::margin - measures::fieldLeft, m_Heights.box});
    set(ascii(controls::overwrite), "Enabled", Any(state.outputCell && !state.running));
    return top + m_Heights.box + measures::sectionGap;
}

std::int32_t DialogView::arrangeDetails(std::int32_t top, const DialogState& state) {
    const bool idle = !state.running;
    top = arrangeBox(controls::details, top, idle);
    top = arrangeRowIf(state.details, nameOf(Field::Confidence), top, idle);
    top = arrangeMessage(Field::Confidence, measures::fieldLeft, top);
    top = arrangeRowIf(state.details && state.comparisons, controls::adjustment, top, idle);
    top = arrangeBox(controls::picture, top, idle);
    return arrangeBox(controls::live, top, idle && state.live);
}

std::int32_t DialogView::arrangeButtons(std::int32_t top, bool idle) {
    const std::int32_t right = measures::width - measures::margin - measures::buttonWidth;
    const std::int32_t beforeIt = right - measures::gap - measures::buttonWidth;
    const auto put = [&](const char* name, std::int32_t left) {
        place(ascii(name), {left, top, measures::buttonWidth, m_Heights.button});
    };
    put(controls::help, measures::margin);
    put(controls::close, m_OkFirst ? right : beforeIt);
    put(controls::run, m_OkFirst ? beforeIt : right);
    set(ascii(controls::run), "Enabled", Any(idle));
    return top + m_Heights.button;
}

std::int32_t DialogView::arrangeFieldIf(bool shown, Field field, std::int32_t top, bool enabled) {
    if (shown) {
        return arrangeField(field, top, enabled);
    }
    const OUString name = ascii(nameOf(field));
    for (const OUString& part : {labelOf(name), name, pickerOf(name), messageOf(name)}) {
        hide(part);
    }
    return top;
}

std::int32_t DialogView::arrangeGroups(bool shown, std::int32_t top, bool enabled) {
    const OUString list = ascii(controls::groups);
    const std::array buttons{ascii(controls::moveUp), ascii(controls::moveDown)};
    if (!shown) {
        for (const OUString& name : {labelOf(list), list, buttons[0], buttons[1]}) {
            hide(name);
        }
        return top;
    }
    const std::int32_t right = measures::width - measures::margin - measures::pickerWidth;
    place(labelOf(list), {measures::margin, top, measures::labelWidth, measures::line});
    place(list,
          {measures::fieldLeft, top, right - measures::gap - measures::fieldLeft, measures::listHeight});
    place(buttons[0], {right, top, measures::pickerWidth, m_Heights.row});
    place(buttons[1], {right, top + m_Heights.row + measures::gap, measures::pickerWidth, m_Heights.row});
    for (const OUString& name : {list, buttons[0], buttons[1]}) {
        set(name, "Enabled", Any(enabled));
    }
    return top + measures::listHeight + measures::gap;
}

std::int32_t DialogView::arrangeRanges(const DialogState& state, std::int32_t top) {
    const bool idle = !state.running;
    top = arrangeBoxIf(state.longTableOffered, controls::groupsInColumn, top, idle);
    top = arrangeField(Field::First, top, idle);
    top = arrangeFieldIf(state.secondRange, Field::Second, top, idle);
    top = arrangeFieldIf(state.longTable, Field::Groups, top, idle);
    top = arrangeGroups(state.longTable, top, idle);
    return arrangeFieldIf(state.blocks, Field::Blocks, top, idle);
}

/// A window that shrinks and grows again at once keeps what was drawn at places that controls have left.
void DialogView::repaint() const {
    if (const auto peer = m_Dialog->getPeer(); peer.is()) {
        peer->invalidate(css::awt::InvalidateStyle::CHILDREN);
    }
}

void DialogView::arrange(const DialogState& state) {
    const bool idle = !state.running;
    std::int32_t top = arrangeRowIf(true, controls::test, measures::margin, idle);
    top = arrangeRowIf(state.alternatives, controls::alternative, top, idle);
    top = arrangeRanges(state, top);
    top = arrangeBoxIf(state.missing, controls::missing, top, idle);
    top = arrangeBoxIf(state.hiddenRows, controls::visibleRows, top, idle);
    top = arrangeReport(top + measures::gap, state);
    top = arrangeBox(controls::labels, top, idle);
    top = arrangeBox(controls::descriptives, top, idle);
    top = arrangeBoxIf(state.ignoreTies, controls::ignoreTies, top, idle);
    top = arrangeDetails(top, state);
    top = arrangeMessage(Field::None, measures::margin, top) + measures::gap;
    top = arrangeButtons(top, idle);
    const auto dialog = query<XPropertySet>(m_Models);
    dialog->setPropertyValue("Width", Any(measures::width));
    dialog->setPropertyValue("Height", Any(top + measures::margin));
    repaint();
}

}  // namespace TBVNonPara::calc
